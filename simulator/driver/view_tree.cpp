#include "driver/view_tree.hpp"

#include "driver/view_properties.hpp"
#include "script/text.hpp"
#include "script/values.hpp"
#include "uikit/application.hpp"
#include "uikit/view_geometry.hpp"

namespace sim::driver {
namespace {

constexpr int kDecimals = 2;

std::string Number(double value) {
    return script::FormatNumber(value, kDecimals);
}

std::string ColorText(ui::Color color) {
    const Rgba rgba = RgbaOf(color);
    return rgba.a == 1 ? Hex(rgba) : Hex(rgba) + "@" + Number(rgba.a);
}

std::string Line(ui::View view) {
    const ViewState &state = ViewStateOf(view);
    const cg::Rect frame = FrameOf(state.model);
    std::string line = script::ClassName(view);
    line += " (" + Number(frame.origin.x) + ", " + Number(frame.origin.y) + ", " + Number(frame.size.width) + ", " +
            Number(frame.size.height) + ")";
    if (state.tag != 0) {
        line += " tag " + std::to_string(state.tag);
    }
    if (state.model.alpha != 1) {
        line += " alpha " + Number(state.model.alpha);
    }
    if (state.hidden) {
        line += " hidden";
    }
    if (view.respondsToSelector(objc::Selector<"currentTitle">())) {
        if (const auto title = objc::Send<"currentTitle", ns::String>(view)) {
            line += " title " + script::Quoted(script::TextOf(title));
        }
    } else if (view.respondsToSelector(objc::Selector<"text">())) {
        if (const auto text = objc::Send<"text", ns::String>(view)) {
            line += " text " + script::Quoted(script::TextOf(text));
        }
    }
    if (state.model.backgroundColor) {
        line += " background " + ColorText(state.model.backgroundColor);
    }
    return line;
}

void Add(ui::View view, bool hiddenToo, std::size_t depth, std::vector<std::string> &lines) {
    if (!hiddenToo && ViewStateOf(view).hidden) {
        return;
    }
    lines.push_back(std::string(2 * depth, ' ') + Line(view));
    for (const objc::Ref<ui::View> &child : ViewStateOf(view).subviews) {
        Add(child, hiddenToo, depth + 1, lines);
    }
}

} // namespace

std::vector<std::string> ViewTree(ui::View root, bool hiddenToo) {
    std::vector<std::string> lines;
    if (root) {
        Add(root, hiddenToo, 0, lines);
        return lines;
    }
    for (const ui::Window window : WindowsOf(nullptr)) {
        Add(window, hiddenToo, 0, lines);
    }
    return lines;
}

} // namespace sim::driver
