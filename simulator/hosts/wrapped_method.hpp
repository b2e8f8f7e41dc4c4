#pragma once
// Methods that somebody else in the process replaces, as we do: another tweak, or the app's own framework of hooks.

#include "objc/runtime.hpp"
#include "script/words.hpp"

namespace sim::hosts {

/// Puts a method in front of the one that the class's objects answer the selector with: one that is recorded, throws or
/// refuses when the plan says so, and else calls the one before. A method that the class inherits is overridden in it.
/// Throws ScriptError for a class or a method that there is not, and for types that scripts cannot write.
void WrapMethod(WordReader &words);

} // namespace sim::hosts
