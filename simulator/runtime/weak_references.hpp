#pragma once
// Zeroing weak references (objc_initWeak and its family, which the desktop's runtime lacks).

#include "objc/object.hpp"

namespace sim {

/// Gives up one reference to an object. When it was the last one, every weak reference to it reads as nil from here
/// on and the result is true: the caller deallocates the object.
bool ReleaseWasLast(objc::id object);

/// Makes every weak reference to an object read as nil.
void ClearWeakReferences(objc::id object);

} // namespace sim
