#pragma once
// The app's classes as they were registered, before anything was injected.

#include "script/words.hpp"

namespace sim::hosts {

using script::Answer;

/// Remembers which classes there are: what comes after them is the app's.
void BeforeRegistration();
/// Remembers the classes that have come since, and their methods.
void AfterRegistration();

/// Each of the app's classes, `CLASS SUPERCLASS`, and behind it its methods, `CLASS SELECTOR TYPES`, in alphabetical
/// order.
Answer RegisteredClasses();
/// The methods of these classes, `CLASS SELECTOR`, that have got another implementation since, or have been added.
Answer ReplacedMethods();

} // namespace sim::hosts
