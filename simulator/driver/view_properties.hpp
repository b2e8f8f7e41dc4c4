#pragma once
// Views and their properties in the words of a script.

#include "apple/uikit/view.hpp"
#include "script/words.hpp"
#include "uikit/color.hpp"

namespace sim::driver {

/// Views below this alpha cannot be seen.
inline constexpr double kVisibleAlpha = 0.01;

/// Whether the view is of the class of this name, or of one below it; nil is of none.
bool IsKind(ui::View view, const char *className);

/// Whether a view and all that it lies in are shown.
bool IsVisible(ui::View view);

/// Whether the view itself is shown, wherever it lies.
bool IsShown(ui::View view);

/// The title or text that a view shows; empty when it shows none.
std::string TextShown(ui::View view);

/// A view in few words: `UIButton "弹"`; `nothing` for nil.
Word DescribeClass(ui::View view);
Fact DescribeView(ui::View view);

/// A rectangle as `x y width height`, a colour as `#RRGGBB`.
Fact DescribeRect(cg::Rect rect);
std::string Hex(const Rgba &color);

/// Reads [presented] PROPERTY and describes it; with `presented` the value that running animations show now.
/// Throws ScriptError for a name that no property has or that this view does not have.
Fact DescribeProperty(ui::View view, WordReader &words);

/// Whether any view has a property of this name.
bool IsProperty(const std::string &name);

/// One property by its name, not as presented; empty when this view does not have it.
Fact PropertyNamed(ui::View view, const std::string &name);

} // namespace sim::driver
