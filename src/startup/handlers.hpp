#pragma once
// The actions of the overlay's controls and gesture recognisers.

namespace corvel {

/// Adds every handler to NSObject as a class method. Called once, at load.
void RegisterHandlers();

} // namespace corvel
