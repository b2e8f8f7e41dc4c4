#pragma once
// The views of a window as text.

#include "apple/uikit/view.hpp"

#include <string>
#include <vector>

namespace sim::driver {

/// One line a view, two spaces deeper than its superview's: class, frame (points in the superview, to a hundredth),
/// then, where they say anything, tag, alpha, hidden, text or title, background. Model values; the same at every run. A
/// nil root stands for all windows, back to front. Hidden views (and windows), with all below them, only when wanted.
std::vector<std::string> ViewTree(ui::View root, bool hiddenToo);

} // namespace sim::driver
