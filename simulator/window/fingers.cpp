#include "window/fingers.hpp"

#include "driver/grabbing.hpp"
#include "driver/view_properties.hpp"
#include "script/text.hpp"
#include "uikit/application.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cmath>

namespace sim::window {
namespace {

constexpr int kOther = 2; // fingers' numbers in the script
constexpr int kWheel = 3;

/// A finger never leaves the glass.
cg::Point OnGlass(cg::Point point) {
    const cg::Size size = ScreenSize();
    constexpr double kLast = 0.1; // points from the far edges
    return {std::clamp(point.x, 0.0, size.width - kLast), std::clamp(point.y, 0.0, size.height - kLast)};
}

cg::Point Opposite(cg::Point point) {
    const cg::Size size = ScreenSize();
    return OnGlass({size.width - point.x, size.height - point.y});
}

std::string Line(const char *what, cg::Point point, int finger = 1) {
    const std::string number = finger == 1 ? "" : " finger " + std::to_string(finger);
    return std::string("touch ") + what + " at " + script::FormatNumber(point.x, 1) + " " +
           script::FormatNumber(point.y, 1) + number;
}

/// The scroll view that a finger at the point is in; nil when there is none.
ui::View ScrollViewAt(cg::Point point) {
    ui::View view = HitTestScreen(point);
    while (view && !driver::IsKind(view, "UIScrollView")) {
        view = view.superview();
    }
    return view;
}

} // namespace

void Fingers::Press(cg::Point point, bool two) {
    LiftFromWheel();
    left_ = 0;
    last_ = OnGlass(point);
    down_ = true;
    two_ = two;
    run_.Do(Line("down", last_));
    if (two_) {
        run_.Do(Line("down", Opposite(last_), kOther));
    }
}

void Fingers::Move(cg::Point point) {
    const cg::Point now = OnGlass(point);
    if (!down_ || now == last_) {
        return;
    }
    last_ = now;
    run_.Do(Line("move", now));
    if (two_) {
        run_.Do(Line("move", Opposite(now), kOther));
    }
}

void Fingers::Lift(cg::Point point) {
    if (!down_) {
        return;
    }
    down_ = false;
    run_.Do(Line("up", OnGlass(point)));
    if (two_) {
        run_.Do(Line("up", Opposite(OnGlass(point)), kOther));
    }
}

void Fingers::Scroll(cg::Point over, double points) {
    if (!down_) {
        over_ = OnGlass(over);
        left_ = points * left_ < 0 ? points : left_ + points; // the other way at once
    }
}

void Fingers::Frame(int milliseconds) {
    constexpr double kFastest = 40; // points a frame
    constexpr int kRest = 150;      // milliseconds after which nothing coasts any more
    if (left_ != 0 && !holds_) {
        LandForWheel();
    } else if (left_ != 0) {
        const double bottom = part_.origin.y + part_.size.height - driver::kEdge;
        const double step = std::clamp(left_, -kFastest, kFastest);
        const double y = std::clamp(holds_->y + step, part_.origin.y + driver::kEdge, bottom);
        if (y == holds_->y) { // at the edge: once more from the other side
            rested_ += milliseconds;
            if (rested_ >= kRest) {
                LiftFromWheel();
            }
            return;
        }
        left_ = std::abs(left_ - (y - holds_->y)) < 0.5 ? 0 : left_ - (y - holds_->y);
        holds_->y = y;
        rested_ = 0;
        run_.Do(Line("move", *holds_, kWheel));
    } else if (holds_) {
        rested_ += milliseconds;
        if (rested_ >= kRest) {
            LiftFromWheel();
        }
    }
}

void Fingers::LandForWheel() {
    const ui::View scrollView = ScrollViewAt(over_);
    std::optional<cg::Point> place;
    if (scrollView) {
        part_ = driver::VisiblePart(scrollView);
        place = driver::PlaceToGrab(scrollView, part_, left_ < 0);
    }
    if (!place) {
        left_ = 0;
        return;
    }
    holds_ = OnGlass(*place);
    rested_ = 0;
    left_ += std::copysign(driver::kTouchSlop, left_);
    run_.Do(Line("down", *holds_, kWheel));
}

void Fingers::LiftFromWheel() {
    if (holds_) {
        run_.Do(Line("up", *holds_, kWheel));
        holds_.reset();
    }
}

} // namespace sim::window
