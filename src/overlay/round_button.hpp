#pragma once
// The look that the float button and the capture button share.

#include "apple/foundation/string.hpp"
#include "apple/uikit/button.hpp"

namespace corvel {

/// Points.
inline constexpr double kRoundButtonDiameter = 50;

/// A round button of that diameter with a title and an action on touch-up-inside, in the stored alpha. It lies at the
/// origin and in no view yet. The caller does not own it.
ui::Button MakeRoundButton(ns::String title, ui::Color background, objc::SEL action);

} // namespace corvel
