#pragma once
// The delegate that keeps a panel's drag away from the sliders on it.

#include "apple/foundation/object.hpp"

namespace corvel {

/// Registers the class GestureProxy, under another name where the host owns one. Called once, at load.
void RegisterGestureProxyClass();

/// The one GestureProxy, made at the first call; callable on any thread. What `[GestureProxy shared]` gives.
ns::Object SharedGestureProxy();

} // namespace corvel
