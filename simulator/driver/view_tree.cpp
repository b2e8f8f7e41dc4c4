#include "driver/view_tree.hpp"

#include "apple/foundation/string.hpp"
#include "uikit/application.hpp"
#include "uikit/color.hpp"
#include "uikit/view_geometry.hpp"

#include <cmath>
#include <cstdio>

namespace sim {
namespace {

/// A number rounded to a hundredth, without zeros that say nothing.
std::string Number(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f", value);
    std::string number = text;
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') {
        number.pop_back();
    }
    return number == "-0" ? "0" : number;
}

/// The text in quotes, on one line.
std::string Quoted(ns::String text) {
    std::string quoted = "\"";
    const char *bytes = text.UTF8String();
    for (const char *at = bytes != nullptr ? bytes : ""; *at != 0; ++at) {
        switch (*at) {
        case '\n':
            quoted += "\\n";
            break;
        case '"':
        case '\\':
            quoted += '\\';
            [[fallthrough]];
        default:
            quoted += *at;
        }
    }
    return quoted + '"';
}

std::string ColorText(ui::Color color) {
    const Rgba parts = RgbaOf(color);
    const auto byte = [](double part) { return static_cast<unsigned>(std::lround(part * 255)); };
    char text[32];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", byte(parts.r), byte(parts.g), byte(parts.b));
    return parts.a == 1 ? text : std::string(text) + "@" + Number(parts.a);
}

std::string Line(ui::View view) {
    const ViewState &state = ViewStateOf(view);
    const cg::Rect frame = FrameOf(state.model);
    std::string line = class_getName(objc::object_getClass(view.pointer));
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
            line += " title " + Quoted(title);
        }
    } else if (view.respondsToSelector(objc::Selector<"text">())) {
        if (const auto text = objc::Send<"text", ns::String>(view)) {
            line += " text " + Quoted(text);
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

} // namespace sim
