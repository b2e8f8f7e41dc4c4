#pragma once
// What the finger of a script does, one step at a time.

#include "script/words.hpp"
#include "uikit/touch.hpp"

namespace sim::driver {

/// The one that is used unless a script names another.
inline constexpr TouchId kFinger = 1;

/// Throws ScriptError when the finger is down.
void CheckFree(TouchId finger, const WordReader &words);

/// A finger lands and waits for what that sets off at once.
void Land(TouchId finger, cg::Point point);

/// A finger that is down moves evenly to the point, in so many steps and seconds.
void Move(TouchId finger, cg::Point from, cg::Point to, long steps, double seconds);

} // namespace sim::driver
