#include "uikit/scroll_view.hpp"

#include "runtime/native_class.hpp"
#include "uikit/animation.hpp"
#include "uikit/classes.hpp"
#include "uikit/gesture_recognizer.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

/// The part of a finger's movement that the content follows beyond its end.
constexpr double kRubberBand = 0.5;
/// Released content moves on as far as its speed takes it in this time (seconds), as with the normal deceleration.
constexpr double kCoast = 0.5;
/// How long (seconds) content takes to come to rest, and to scroll where code sends it.
constexpr double kRestTime = 0.6;
constexpr double kProgramTime = 0.3;

/// The offsets at which the content's ends meet the view's.
struct OffsetRange {
    cg::Point least;
    cg::Point greatest;

    cg::Point Clamp(cg::Point offset) const {
        return {std::clamp(offset.x, least.x, greatest.x), std::clamp(offset.y, least.y, greatest.y)};
    }
};

OffsetRange RangeOf(ui::View self) {
    const ScrollState &state = ScrollStateOf(self);
    const cg::Size size = ViewStateOf(self).model.bounds.size;
    const ui::EdgeInsets &inset = state.contentInset;
    const cg::Point least{-inset.left, -inset.top};
    return {least,
            {std::max(least.x, state.contentSize.width + inset.right - size.width),
             std::max(least.y, state.contentSize.height + inset.bottom - size.height)}};
}

void SetContentOffset(ui::View self, cg::Point offset) {
    objc::Send<"setBounds:", void>(self, cg::Rect{offset, self.bounds().size});
}

void MoveTo(ui::View self, cg::Point offset, double seconds) {
    if (offset == self.bounds().origin) {
        return;
    }
    Animate({.duration = seconds,
             .options = UIViewAnimationOptionAllowUserInteraction,
             .curve = AnimationCurve::Plain(UIViewAnimationCurveEaseOut)},
            [&] { SetContentOffset(self, offset); }, {});
}

void SetContentOffset(ui::View self, cg::Point offset, bool animated) {
    if (animated) {
        MoveTo(self, offset, kProgramTime);
    } else {
        SetContentOffset(self, offset);
    }
}

bool MayScroll(ui::View self) {
    const ScrollState &state = ScrollStateOf(self);
    const OffsetRange range = RangeOf(self);
    return state.scrollEnabled && (state.alwaysBounceVertical || state.alwaysBounceHorizontal ||
                                   range.greatest.x > range.least.x || range.greatest.y > range.least.y);
}

/// One coordinate of a dragged offset: beyond the ends it follows half as far, or not at all.
double Dragged(double wanted, double least, double greatest, bool bounces, bool always) {
    const double within = std::clamp(wanted, least, greatest);
    const bool follows = bounces && (greatest > least || always);
    return follows ? within + (wanted - within) * kRubberBand : within;
}

void Drag(ui::View self, cg::Point way) {
    const ScrollState &state = ScrollStateOf(self);
    const OffsetRange range = RangeOf(self);
    const cg::Point wanted{state.dragStart.x - way.x, state.dragStart.y - way.y};
    SetContentOffset(self,
                     {Dragged(wanted.x, range.least.x, range.greatest.x, state.bounces, state.alwaysBounceHorizontal),
                      Dragged(wanted.y, range.least.y, range.greatest.y, state.bounces, state.alwaysBounceVertical)});
}

/// The content moves on at the finger's speed and comes to rest within its ends.
void Release(ui::View self, cg::Point velocity) {
    const cg::Point now = self.bounds().origin;
    const cg::Point rest{now.x - velocity.x * kCoast, now.y - velocity.y * kCoast};
    MoveTo(self, RangeOf(self).Clamp(rest), kRestTime);
}

void HandlePan(ui::View self, ui::PanGestureRecognizer pan) {
    ScrollState &state = ScrollStateOf(self);
    switch (pan.state()) {
    case UIGestureRecognizerStateBegan:
        state.dragging = true;
        state.dragStart = self.bounds().origin;
        pan.setTranslation({}, self.superview()); // the content stays where it is until the finger goes on
        break;
    case UIGestureRecognizerStateChanged:
        Drag(self, pan.translationInView(self.superview()));
        break;
    case UIGestureRecognizerStateEnded:
        state.dragging = false;
        Release(self, objc::Send<"velocityInView:", cg::Point>(pan, self.superview()));
        break;
    default:
        state.dragging = false;
        Release(self, {});
        break;
    }
}

/// The nearest offset at which a view of this length shows the part from start to end.
double Reveal(double offset, double length, double start, double end) {
    const double least = std::min(end - length, start);
    return std::clamp(offset, least, std::max(least, start));
}

/// An offset that lies beyond the content comes back into its range.
void BringBack(ui::View self) {
    const cg::Point offset = self.bounds().origin;
    const cg::Point within = RangeOf(self).Clamp(offset);
    if (!(offset == within) && !ScrollStateOf(self).dragging) {
        SetContentOffset(self, within);
    }
}

void DefineOffset(Class<ScrollState> &scroll) {
    scroll.Method<"contentOffset">([](const ViewState &state) { return state.model.bounds.origin; });
    scroll.Method<"setContentOffset:">([](ui::View self, cg::Point offset) { SetContentOffset(self, offset); });
    scroll.Method<"setContentOffset:animated:">(
        [](ui::View self, cg::Point offset, bool animated) { SetContentOffset(self, offset, animated); });
    scroll.Property<"contentSize", &ScrollState::contentSize, &BringBack>();
    scroll.Property<"contentInset", &ScrollState::contentInset>();
    scroll.Method<"scrollRectToVisible:animated:", &ScrollToRect>();
}

void DefinePan(Class<ScrollState> &scroll) {
    scroll.ReadOnly<"panGestureRecognizer", &ScrollState::pan>();
    scroll.ReadOnly<"isDragging", &ScrollState::dragging>();
    scroll.Method<"gestureRecognizerShouldBegin:">([](ui::View self, ui::GestureRecognizer recognizer) {
        return recognizer == ScrollStateOf(self).pan.get()
                   ? MayScroll(self)
                   : objc::SendSuper<"gestureRecognizerShouldBegin:", bool>(self, recognizer);
    });
    scroll.Method<"_handlePan:", &HandlePan>();
}

} // namespace

void DefineScrollView() {
    auto scroll = Class<ScrollState>("UIScrollView", "UIView");
    scroll.Method<"initWithFrame:">([](ui::View self, cg::Rect frame) {
        const auto view = objc::SendSuper<"initWithFrame:", ui::View>(self, frame);
        view.setClipsToBounds(true);
        ScrollStateOf(view).pan = AddRecognizer<ui::PanGestureRecognizer>(view, objc::Selector<"_handlePan:">());
        return view;
    });
    DefineOffset(scroll);
    DefinePan(scroll);
    scroll.Property<"isScrollEnabled", &ScrollState::scrollEnabled>();
    scroll.Property<"bounces", &ScrollState::bounces>();
    scroll.Property<"alwaysBounceVertical", &ScrollState::alwaysBounceVertical>();
    scroll.Property<"alwaysBounceHorizontal", &ScrollState::alwaysBounceHorizontal>();
    scroll.Property<"showsVerticalScrollIndicator", &ScrollState::showsVerticalIndicator>();
    scroll.Property<"showsHorizontalScrollIndicator", &ScrollState::showsHorizontalIndicator>();
}

ScrollState &ScrollStateOf(ui::View scrollView) {
    return StateOf<ScrollState>(scrollView);
}

void ScrollToRect(ui::View scrollView, cg::Rect rect, bool animated) {
    const cg::Rect bounds = scrollView.bounds();
    const cg::Point wanted{
        Reveal(bounds.origin.x, bounds.size.width, rect.origin.x, rect.origin.x + rect.size.width),
        Reveal(bounds.origin.y, bounds.size.height, rect.origin.y, rect.origin.y + rect.size.height)};
    SetContentOffset(scrollView, RangeOf(scrollView).Clamp(wanted), animated);
}

} // namespace sim
