#include "overlay/toast.hpp"

#include "apple/dispatch/queue.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"

#include <algorithm>
#include <limits>

namespace corvel {
namespace {

constexpr double kFadeSeconds = 0.2;
constexpr std::int64_t kVisibleNanoseconds = 1'600'000'000;

objc::Ref<ui::Label> MakeToastLabel() {
    const auto label = ns::New<ui::Label>();
    label->setBackgroundColor(ui::Color::blackColor().colorWithAlphaComponent(0.75));
    label->setTextColor(ui::Color::whiteColor());
    label->setFont(ui::Font::systemFontOfSize(12));
    label->setTextAlignment(NSTextAlignmentCenter);
    label->setNumberOfLines(2);
    label->layer().setCornerRadius(10);
    label->setClipsToBounds(true);
    label->layer().setZPosition(9999);
    label->setAlpha(0);
    return label;
}

/// The label in a window: it stays in the first one for as long as that lives. The overlay's own, in which it may be,
/// goes with a teardown.
ui::Label ToastLabelIn(ui::Window window) {
    objc::Ref<ui::Label> &label = Overlay().toastLabel;
    if (!label) {
        label = MakeToastLabel();
    }
    if (!label->window()) {
        window.addSubview(label);
    }
    return label;
}

/// An animation of the label to the alpha.
auto ToastAlpha(double alpha) {
    return objc::MakeBlock<void()>([alpha] { Overlay().toastLabel->setAlpha(alpha); });
}

void FadeOutLater() {
    dispatch::AfterOnMain(kVisibleNanoseconds, [] { ui::View::animateWithDuration(kFadeSeconds, ToastAlpha(0)); });
}

} // namespace

void ShowToast(ns::String text) {
    const ui::Window window = FindKeyWindow();
    if (!window) {
        return;
    }
    const ui::Label label = ToastLabelIn(window);
    label.setText(text);
    const cg::Size space = window.bounds().size;
    const cg::Size fitted = label.sizeThatFits({space.width - 40, std::numeric_limits<double>::max()});
    const double width = std::min(fitted.width + 24, space.width - 40);
    const double height = std::min(fitted.height + 16, 60.0);
    label.setFrame({{(space.width - width) / 2, (space.height - height) / 2}, {width, height}});
    // The fade-out of an earlier notice is not called off: it may take this one away early.
    ui::View::animateWithDuration(kFadeSeconds, ToastAlpha(1),
                                  objc::MakeBlock<void(bool)>([](bool) { FadeOutLater(); }));
}

} // namespace corvel
