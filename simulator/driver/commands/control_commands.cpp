// Fingers on the system's own controls: scroll views and the colour picker.

#include "driver/commands/commands.hpp"
#include "driver/targets.hpp"
#include "runtime/clock.hpp"
#include "uikit/application.hpp"
#include "uikit/color_picker.hpp"
#include "uikit/touch.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

namespace sim::driver {
namespace {

using script::Bare;
using script::WordReader;

constexpr TouchId kFinger = 1;
constexpr double kEdge = 6;       // points from a scroll view's edges where a finger lands and turns back
constexpr double kMargin = 30;    // points that are left between the target and the edge
constexpr double kTouchSlop = 12; // points that a finger goes before the content follows

bool IsOnControl(ui::View view) {
    const objc::Class control = objc_getClass("UIControl");
    for (; view; view = view.superview()) {
        if (view.isKindOfClass(control)) {
            return true;
        }
    }
    return false;
}

/// What can be seen of a scroll view, on the screen.
cg::Rect VisiblePart(ui::View scrollView) {
    const cg::Rect rect = ConvertRect(scrollView.bounds(), scrollView, nullptr);
    const cg::Size screen = ScreenSize();
    const double left = std::max(rect.origin.x, 0.0);
    const double top = std::max(rect.origin.y, 0.0);
    return {{left, top},
            {std::min(rect.origin.x + rect.size.width, screen.width) - left,
             std::min(rect.origin.y + rect.size.height, screen.height) - top}};
}

/// A place near the start of the way where a finger touches the scroll view beside its controls.
std::optional<cg::Point> PlaceToGrab(ui::View scrollView, cg::Rect part, bool upwards) {
    constexpr double kStep = 8;
    const double top = part.origin.y + kEdge;
    const double bottom = part.origin.y + part.size.height - kEdge;
    for (const double x : {part.origin.x + kEdge, part.origin.x + part.size.width - kEdge}) {
        for (int step = 0; step * kStep < (bottom - top) / 2; ++step) {
            const double way = step * kStep;
            const cg::Point point{x, upwards ? bottom - way : top + way};
            const ui::View hit = HitTestScreen(point);
            if (hit && IsDescendant(hit, scrollView) && !IsOnControl(hit)) {
                return point;
            }
        }
    }
    return std::nullopt;
}

/// One finger draws the content slowly and rests before it is lifted, so that nothing coasts.
void Draw(cg::Point from, double way) {
    constexpr int kSteps = 10;
    constexpr double kSeconds = 0.3;
    constexpr double kRest = 0.3;
    const cg::Point end{from.x, from.y + way};
    touch::Began(kFinger, from);
    clock::Drain();
    for (int i = 1; i <= kSteps; ++i) {
        touch::Moved(kFinger, {from.x, std::lerp(from.y, end.y, static_cast<double>(i) / kSteps)});
        clock::Advance(kSeconds / kSteps);
    }
    clock::Advance(kRest);
    touch::Moved(kFinger, end);
    touch::Ended(kFinger, end);
    clock::Advance(1); // until it has come to rest
}

/// How far the content must go (points, down is above zero) so that the point lies well within the part.
double WayInto(cg::Rect part, cg::Point point) {
    const double margin = std::min(kMargin, part.size.height / 4);
    const double top = part.origin.y + margin;
    const double bottom = part.origin.y + part.size.height - margin;
    return std::clamp(point.y, top, bottom) - point.y;
}

double HexPart(const std::string &text, std::size_t at) {
    return static_cast<double>(std::stoul(text.substr(at, 2), nullptr, 16)) / 255;
}

ui::Color ReadColor(WordReader &words) {
    if (words.Take("none")) {
        return {};
    }
    if (words.Take("grey")) {
        return ui::Color::colorWithWhite(words.Number("the whiteness, from 0 to 1"), 1);
    }
    const std::string text = words.Name("#RRGGBB, grey or none");
    constexpr std::size_t kLength = 7;
    if (text.size() != kLength || text.front() != '#' ||
        text.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string::npos) {
        words.Fail("expected #RRGGBB, grey or none, not " + text);
    }
    return ui::Color::colorWithRed(HexPart(text, 1), HexPart(text, 3), HexPart(text, 5), 1);
}

} // namespace

/// scroll TARGET into view
void DoScroll(Session &, WordReader &words) {
    constexpr int kMostDraws = 20;
    const WordReader target = words;
    WordReader reader = target;
    ReadTargetAnywhere(reader);
    words = reader;
    words.Expect("into");
    words.Expect("view");
    words.End();
    if (touch::IsDown(kFinger)) {
        words.Fail("finger 1 is down already");
    }
    for (int i = 0; i < kMostDraws; ++i) {
        reader = target;
        const Target now = ReadTargetAnywhere(reader);
        const ui::View scrollView = ScrolledOutOf(now);
        if (!scrollView) {
            Say({Bare("scroll"), Bare("to"), Bare(now.point.x), Bare(now.point.y)});
            return;
        }
        const cg::Rect part = VisiblePart(scrollView);
        const double wanted = WayInto(part, now.point);
        const std::optional<cg::Point> place = PlaceToGrab(scrollView, part, wanted < 0);
        if (!place) {
            words.Fail("no part of the scroll view can be grabbed");
        }
        const double room =
            wanted < 0 ? place->y - part.origin.y - kEdge : part.origin.y + part.size.height - kEdge - place->y;
        const double way = std::min(std::abs(wanted) + kTouchSlop, room);
        Draw(*place, std::copysign(way, wanted));
    }
    words.Fail("it stays out of sight");
}

/// pick #RRGGBB|grey W|none
void DoPick(Session &, WordReader &words) {
    const ui::Color color = ReadColor(words);
    words.End();
    const ui::ColorPickerViewController picker = PresentedColorPicker();
    if (!picker) {
        words.Fail("no colour picker is open");
    }
    ChooseColor(picker, color);
}

} // namespace sim::driver
