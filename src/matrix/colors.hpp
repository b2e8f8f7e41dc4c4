#pragma once
// Colours stored as hex strings.

#include "apple/foundation/string.hpp"
#include "apple/uikit/color.hpp"

namespace corvel {

/// The colour that a string of the form #RRGGBB (or RRGGBB) names, with the alpha; there is no short form, and what is
/// no hex number is black. A nil or empty string gives opaque black whatever the alpha. The caller does not own the
/// result.
ui::Color ColorFromHex(ns::String hex, double alpha);

} // namespace corvel
