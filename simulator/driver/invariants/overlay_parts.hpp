#pragma once
// The window that an injected library lays over the app, and what lies in it directly.

#include "apple/uikit/window.hpp"
#include "script/words.hpp"

#include <vector>

namespace sim::driver {

/// Every window of exactly this class that exists, hidden ones too.
std::vector<ui::Window> WindowsOfClass(const std::string &className);

/// What is meant among the views that lie in a window directly: `button "TITLE"`, or `panel "TEXT"`, a blurred one with
/// a label of this text in it.
struct Part {
    bool isPanel = false;
    std::string text;
};

/// Reads a part. Throws ScriptError.
Part ReadPart(WordReader &words);

/// Whether the view is that part.
bool IsPart(ui::View view, const Part &part);

} // namespace sim::driver
