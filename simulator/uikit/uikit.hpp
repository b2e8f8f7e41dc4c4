#pragma once
// Entry to this directory: the UIKit subset's classes.

namespace sim {

/// Registers every class of the subset with the Objective-C runtime, superclasses first. Called once, on the main
/// thread, after the runtime's own preparations and before any UIKit class is used.
void RegisterUIKit();

} // namespace sim
