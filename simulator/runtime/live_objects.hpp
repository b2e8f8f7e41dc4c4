#pragma once
// How many objects of each class there are.

#include "objc/runtime.hpp"

namespace sim {

/// Counts from now on. Before objects of interest are made.
void InstallObjectCount();

/// An object of the class goes.
void CountGone(objc::Class cls);

/// How many objects of exactly this class are alive, of those that NSObject's own allocation made since the count
/// began.
long LiveObjects(objc::Class cls);

} // namespace sim
