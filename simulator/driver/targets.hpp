#pragma once
// What a script points at: views by what they show, and places on the glass.

#include "apple/uikit/view.hpp"
#include "script/words.hpp"

#include <vector>

namespace sim::driver {

/// A place on the screen (points) and, unless the script gave the place itself, the view there.
struct Target {
    cg::Point point;
    ui::View view;
};

/// Reads a target that a finger can reach: "TEXT", label "TEXT", button "TEXT", beside "TEXT", switch "TEXT",
/// slider "TEXT", segment "TEXT", field "TEXT", cell N, tag N, alert "TITLE", class NAME [N], each perhaps followed by
/// `in` and another target, or `at X Y`. Only what is visible counts; none and several are errors, and so is a target
/// that is scrolled out of sight. The place is the middle of what the view shows now.
Target ReadTarget(script::WordReader &words);

/// The same for a target that may be scrolled out of sight.
Target ReadTargetAnywhere(script::WordReader &words);

/// The scroll view around the target in whose visible part its place does not lie; nil when the place can be seen.
ui::View ScrolledOutOf(const Target &target);

/// Reads a target's view, which may be hidden when no visible one is meant; nil when there is none.
ui::View ReadView(script::WordReader &words);

/// Reads a target and gives all visible views that it means.
std::vector<ui::View> ReadViews(script::WordReader &words);

/// Whether a view and all that it lies in are shown.
bool IsVisible(ui::View view);

/// The title or text that a view shows; empty when it shows none.
std::string TextShown(ui::View view);

/// A view in few words: `UIButton "弹"`.
script::Word DescribeClass(ui::View view);
std::vector<script::Word> DescribeView(ui::View view);

} // namespace sim::driver
