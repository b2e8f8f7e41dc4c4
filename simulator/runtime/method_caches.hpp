#pragma once
// Methods that change while objects of their classes are in use.

#include "objc/runtime.hpp"

namespace sim {

/// method_setImplementation for whoever knows the class, or the metaclass, whose own method it is: nobody has to be
/// searched for it. Gives the implementation that was in force.
objc::IMP SetImplementation(objc::Class owner, objc::Method method, objc::IMP implementation);

/// Builds the tables that changes have thrown away, of all classes that have been messaged before: for whoever counts
/// what comes next without them.
void BuildTables();

} // namespace sim
