#pragma once
// Associated objects (objc_setAssociatedObject and objc_getAssociatedObject, which the desktop's runtime lacks).

#include "objc/object.hpp"

namespace sim {

/// Releases everything attached to an object that is being deallocated.
void ReleaseAssociatedObjects(objc::id owner);

} // namespace sim
