#pragma once
// Methods that change while objects of their classes are in use.

#include "objc/runtime.hpp"

namespace sim {

/// method_setImplementation for whoever knows the class, or the metaclass, whose own method it is: nobody has to be
/// searched for it. Gives the implementation that was in force.
objc::IMP SetImplementation(objc::Class owner, objc::Method method, objc::IMP implementation);

} // namespace sim
