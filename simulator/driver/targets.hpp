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

/// Reads a target that a finger can reach: "TEXT", a word of kTextTargets with a text, `class NAME [N]`, `tag N [+ N]`,
/// `with PROPERTY VALUE` or a word of the script's own, each perhaps followed by `in` and another target; or `at X Y`.
/// Only what is visible counts; none and several are errors, and so is a target that is scrolled out of sight or lies
/// outside the screen. The place is the middle of what the view shows now.
Target ReadTarget(WordReader &words);

/// The same for a target that may be scrolled out of sight.
Target ReadTargetAnywhere(WordReader &words);

/// The scroll view around the target in whose visible part its place does not lie; nil when the place can be seen.
ui::View ScrolledOutOf(const Target &target);

/// Reads a target's view, which may be hidden when no visible one is meant; nil when there is none.
ui::View ReadView(WordReader &words);

/// Reads a target and gives all visible views that it means.
std::vector<ui::View> ReadViews(WordReader &words);

} // namespace sim::driver
