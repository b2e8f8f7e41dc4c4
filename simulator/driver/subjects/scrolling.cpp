// A finger that scrolls until something can be seen.

#include "driver/fingers.hpp"
#include "driver/grabbing.hpp"
#include "driver/subjects/subjects.hpp"
#include "driver/targets.hpp"
#include "driver/view_properties.hpp"
#include "runtime/clock.hpp"

#include <algorithm>
#include <cmath>

namespace sim::driver {
namespace {

constexpr double kMargin = 30; // points that are left between the target and the edge

/// One finger draws the content slowly and rests before it is lifted, so that nothing coasts.
void Draw(cg::Point from, double way) {
    constexpr int kSteps = 10;
    constexpr double kSeconds = 0.3;
    constexpr double kRest = 0.3;
    const cg::Point end{from.x, from.y + way};
    Land(kFinger, from);
    Move(kFinger, from, end, kSteps, kSeconds);
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
    CheckFree(kFinger, words);
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

constexpr Command kCommands[] = {{"scroll", &DoScroll}};

} // namespace

constinit const Subject kScrolling{kCommands, {}};

} // namespace sim::driver
