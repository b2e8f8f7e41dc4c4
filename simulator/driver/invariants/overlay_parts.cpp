#include "driver/invariants/overlay_parts.hpp"

#include "driver/view_properties.hpp"
#include "script/values.hpp"
#include "uikit/application.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

bool HoldsLabel(ui::View view, const std::string &text) {
    return std::ranges::any_of(ViewStateOf(view).subviews, [&text](const objc::Ref<ui::View> &child) {
        return (IsKind(child, "UILabel") && TextShown(child) == text) || HoldsLabel(child, text);
    });
}

} // namespace

std::vector<ui::Window> WindowsOfClass(const std::string &className) {
    std::vector<ui::Window> windows = WindowsOf(nullptr);
    std::erase_if(windows, [&className](ui::Window window) { return script::ClassName(window) != className; });
    return windows;
}

Part ReadPart(WordReader &words) {
    Part part;
    part.isPanel = words.Take("panel");
    if (!part.isPanel) {
        words.Expect("button");
    }
    part.text = words.QuotedText("what it shows");
    return part;
}

bool IsPart(ui::View view, const Part &part) {
    return part.isPanel ? IsKind(view, "UIVisualEffectView") && HoldsLabel(view, part.text)
                        : IsKind(view, "UIButton") && TextShown(view) == part.text;
}

} // namespace sim::driver
