#include "uikit/scroll_view.hpp"

#include "runtime/native_class.hpp"
#include "uikit/animation.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

using ScrollView = ui::View;

/// How much of a finger's way the content follows beyond its end.
constexpr double kRubberBand = 0.5;
/// Seconds for which content goes on as fast as the finger left it: what the normal deceleration comes to.
constexpr double kCoast = 0.5;
/// Seconds that content takes to come to rest, or to go where a program sends it.
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

OffsetRange RangeOf(ScrollView self) {
    const ScrollState &state = ScrollStateOf(self);
    const cg::Size size = ViewStateOf(self).model.bounds.size;
    const ui::EdgeInsets &inset = state.contentInset;
    const cg::Point least{-inset.left, -inset.top};
    return {least,
            {std::max(least.x, state.contentSize.width + inset.right - size.width),
             std::max(least.y, state.contentSize.height + inset.bottom - size.height)}};
}

cg::Point ContentOffset(ScrollView self, objc::SEL) {
    return ViewStateOf(self).model.bounds.origin;
}

void SetContentOffset(ScrollView self, objc::SEL, cg::Point offset) {
    objc::Send<"setBounds:", void>(self, cg::Rect{offset, self.bounds().size});
}

void MoveTo(ScrollView self, cg::Point offset, double seconds) {
    if (offset == self.bounds().origin) {
        return;
    }
    constexpr unsigned long kEaseOut = 2;
    Animate({.duration = seconds, .options = kAnimationAllowUserInteraction, .curve = AnimationCurve::Plain(kEaseOut)},
            [&] { SetContentOffset(self, nullptr, offset); }, {});
}

void SetContentOffsetAnimated(ScrollView self, objc::SEL, cg::Point offset, bool animated) {
    if (animated) {
        MoveTo(self, offset, kProgramTime);
    } else {
        SetContentOffset(self, nullptr, offset);
    }
}

ScrollView InitWithFrame(ScrollView self, objc::SEL, cg::Rect frame) {
    const auto view = objc::SendSuper<"initWithFrame:", ui::View>(self, frame);
    if (view) {
        view.setClipsToBounds(true);
        const auto pan = objc::Ref<ui::GestureRecognizer>::Adopt(
            ns::Alloc<ui::PanGestureRecognizer>().initWithTarget(view, objc::Selector<"_handlePan:">()));
        ScrollStateOf(view).pan = objc::As<ui::PanGestureRecognizer>(pan.get());
        view.addGestureRecognizer(pan);
    }
    return view;
}

bool MayScroll(ScrollView self) {
    const ScrollState &state = ScrollStateOf(self);
    const OffsetRange range = RangeOf(self);
    return state.scrollEnabled && (state.alwaysBounceVertical || state.alwaysBounceHorizontal ||
                                   range.greatest.x > range.least.x || range.greatest.y > range.least.y);
}

bool GestureRecognizerShouldBegin(ScrollView self, objc::SEL, ui::GestureRecognizer recognizer) {
    if (recognizer == ScrollStateOf(self).pan.get()) {
        return MayScroll(self);
    }
    return objc::SendSuper<"gestureRecognizerShouldBegin:", bool>(self, recognizer);
}

/// One coordinate of a dragged offset: beyond the ends it follows half as far, or not at all.
double Dragged(double wanted, double least, double greatest, bool bounces, bool always) {
    const double within = std::clamp(wanted, least, greatest);
    const bool follows = bounces && (greatest > least || always);
    return follows ? within + (wanted - within) * kRubberBand : within;
}

void Drag(ScrollView self, cg::Point way) {
    const ScrollState &state = ScrollStateOf(self);
    const OffsetRange range = RangeOf(self);
    const cg::Point wanted{state.dragStart.x - way.x, state.dragStart.y - way.y};
    SetContentOffset(self, nullptr,
                     {Dragged(wanted.x, range.least.x, range.greatest.x, state.bounces, state.alwaysBounceHorizontal),
                      Dragged(wanted.y, range.least.y, range.greatest.y, state.bounces, state.alwaysBounceVertical)});
}

/// The content goes on as the finger left it, and comes to rest within its ends.
void Release(ScrollView self, cg::Point velocity) {
    const cg::Point now = self.bounds().origin;
    const cg::Point rest{now.x - velocity.x * kCoast, now.y - velocity.y * kCoast};
    MoveTo(self, RangeOf(self).Clamp(rest), kRestTime);
}

void HandlePan(ScrollView self, objc::SEL, ui::PanGestureRecognizer pan) {
    ScrollState &state = ScrollStateOf(self);
    switch (pan.state()) {
    case ui::GestureState::kBegan:
        state.dragging = true;
        state.dragStart = self.bounds().origin;
        pan.setTranslation({}, self.superview()); // the content stays where it is until the finger goes on
        break;
    case ui::GestureState::kChanged:
        Drag(self, pan.translationInView(self.superview()));
        break;
    case ui::GestureState::kEnded:
        state.dragging = false;
        Release(self, objc::Send<"velocityInView:", cg::Point>(pan, self.superview()));
        break;
    default:
        state.dragging = false;
        Release(self, {});
        break;
    }
}

cg::Size ContentSize(ScrollView self, objc::SEL) {
    return ScrollStateOf(self).contentSize;
}

void SetContentSizeMethod(ScrollView self, objc::SEL, cg::Size size) {
    SetContentSize(self, size);
}

ui::PanGestureRecognizer PanGestureRecognizer(ScrollView self, objc::SEL) {
    return ScrollStateOf(self).pan;
}

void ScrollRectToVisible(ScrollView self, objc::SEL, cg::Rect rect, bool animated) {
    ScrollToRect(self, rect, animated);
}

template <auto Member> auto Get(ScrollView self, objc::SEL) {
    return ScrollStateOf(self).*Member;
}

template <auto Member, class T> void Set(ScrollView self, objc::SEL, T value) {
    ScrollStateOf(self).*Member = value;
}

/// The nearest offset at which a stretch from start to end shows, in a view this long.
double Reveal(double offset, double length, double start, double end) {
    const double least = std::min(end - length, start);
    return std::clamp(offset, least, std::max(least, start));
}

} // namespace

ScrollState &ScrollStateOf(ui::View scrollView) {
    return StateOf<ScrollState>(scrollView);
}

void SetContentSize(ui::View scrollView, cg::Size size) {
    ScrollStateOf(scrollView).contentSize = size;
    const cg::Point offset = scrollView.bounds().origin;
    const cg::Point within = RangeOf(scrollView).Clamp(offset);
    if (!(offset == within) && !ScrollStateOf(scrollView).dragging) {
        SetContentOffset(scrollView, nullptr, within);
    }
}

void ScrollToRect(ui::View scrollView, cg::Rect rect, bool animated) {
    const cg::Rect bounds = scrollView.bounds();
    const cg::Point wanted{
        Reveal(bounds.origin.x, bounds.size.width, rect.origin.x, rect.origin.x + rect.size.width),
        Reveal(bounds.origin.y, bounds.size.height, rect.origin.y, rect.origin.y + rect.size.height)};
    SetContentOffsetAnimated(scrollView, nullptr, RangeOf(scrollView).Clamp(wanted), animated);
}

void RegisterScrollView() {
    using S = ScrollState;
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"initWithFrame:", &InitWithFrame>(),
        objc::MethodNamed<"contentOffset", &ContentOffset>(),
        objc::MethodNamed<"setContentOffset:", &SetContentOffset>(),
        objc::MethodNamed<"setContentOffset:animated:", &SetContentOffsetAnimated>(),
        objc::MethodNamed<"contentSize", &ContentSize>(),
        objc::MethodNamed<"setContentSize:", &SetContentSizeMethod>(),
        objc::MethodNamed<"contentInset", &Get<&S::contentInset>>(),
        objc::MethodNamed<"setContentInset:", &Set<&S::contentInset, ui::EdgeInsets>>(),
        objc::MethodNamed<"isScrollEnabled", &Get<&S::scrollEnabled>>(),
        objc::MethodNamed<"setScrollEnabled:", &Set<&S::scrollEnabled, bool>>(),
        objc::MethodNamed<"bounces", &Get<&S::bounces>>(),
        objc::MethodNamed<"setBounces:", &Set<&S::bounces, bool>>(),
        objc::MethodNamed<"alwaysBounceVertical", &Get<&S::alwaysBounceVertical>>(),
        objc::MethodNamed<"setAlwaysBounceVertical:", &Set<&S::alwaysBounceVertical, bool>>(),
        objc::MethodNamed<"alwaysBounceHorizontal", &Get<&S::alwaysBounceHorizontal>>(),
        objc::MethodNamed<"setAlwaysBounceHorizontal:", &Set<&S::alwaysBounceHorizontal, bool>>(),
        objc::MethodNamed<"showsVerticalScrollIndicator", &Get<&S::showsVerticalIndicator>>(),
        objc::MethodNamed<"setShowsVerticalScrollIndicator:", &Set<&S::showsVerticalIndicator, bool>>(),
        objc::MethodNamed<"showsHorizontalScrollIndicator", &Get<&S::showsHorizontalIndicator>>(),
        objc::MethodNamed<"setShowsHorizontalScrollIndicator:", &Set<&S::showsHorizontalIndicator, bool>>(),
        objc::MethodNamed<"isDragging", &Get<&S::dragging>>(),
        objc::MethodNamed<"panGestureRecognizer", &PanGestureRecognizer>(),
        objc::MethodNamed<"scrollRectToVisible:animated:", &ScrollRectToVisible>(),
        objc::MethodNamed<"gestureRecognizerShouldBegin:", &GestureRecognizerShouldBegin>(),
        objc::MethodNamed<"_handlePan:", &HandlePan>(),
    };
    RegisterClassWithState<ScrollState>("UIScrollView", "UIView", methods);
}

} // namespace sim
