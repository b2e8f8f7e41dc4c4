// UIView: layout at the end of a turn, and sizes.

#include "runtime/clock.hpp"
#include "uikit/application.hpp"
#include "uikit/screen.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"
#include "uikit/view_parts.hpp"

#include <algorithm>

namespace sim {
namespace {

/// How far the view reaches into what is to be kept free at the screen's edges; nothing outside a window.
ui::EdgeInsets SafeAreaOf(ui::View view) {
    const ui::Window window = WindowOf(view);
    if (!window) {
        return {};
    }
    const ui::EdgeInsets safe = ScreenSafeArea();
    const cg::Size screen = ScreenSize();
    const cg::Point start = ToScreen(view, view.bounds().origin);
    const cg::Size size = view.bounds().size;
    return {std::max(safe.top - start.y, 0.0), std::max(safe.left - start.x, 0.0),
            std::max(start.y + size.height - (screen.height - safe.bottom), 0.0),
            std::max(start.x + size.width - (screen.width - safe.right), 0.0)};
}

/// Whether the view or one below it waits for a layout. Looking runs nobody's code.
bool WaitsForLayout(ui::View view) {
    const ViewState &state = ViewStateOf(view);
    return state.needsLayout || std::ranges::any_of(state.subviews, [](const objc::Ref<ui::View> &child) {
               return WaitsForLayout(child.get());
           });
}

void ScheduleLayout() {
    static bool scheduled = false;
    if (!scheduled) {
        scheduled = true;
        clock::Schedule(0, [] {
            scheduled = false;
            LayoutWindows();
        });
    }
}

} // namespace

void DefineViewLayout(ViewClass &view) {
    view.Method<"setNeedsLayout", &SetNeedsLayout>();
    view.Method<"layoutIfNeeded", &LayoutIfNeeded>();
    view.Method<"layoutSubviews">([](ui::View) {});
    view.Property<"autoresizingMask", &ViewState::autoresizingMask>();
    view.Property<"autoresizesSubviews", &ViewState::autoresizesSubviews>();
    view.Method<"safeAreaInsets", &SafeAreaOf>();
    view.Method<"sizeThatFits:">([](const ViewState &state, cg::Size) { return state.model.bounds.size; });
    view.Method<"sizeToFit">(
        [](ui::View self) { self.setFrame({self.frame().origin, self.sizeThatFits(self.bounds().size)}); });
}

void SetNeedsLayout(ui::View view) {
    if (view) {
        ViewStateOf(view).needsLayout = true;
        ScheduleLayout();
    }
}

void LayoutIfNeeded(ui::View view) {
    if (!WaitsForLayout(view)) {
        return; // nearly always
    }
    const objc::Ref<ui::View> keep = view;
    ViewState &state = ViewStateOf(view);
    // A layout may ask for another one. One that always does would hang a phone; here it stops after some rounds.
    constexpr int kMostRounds = 8;
    for (int round = 0; state.needsLayout && round < kMostRounds; ++round) {
        state.needsLayout = false;
        const ui::Responder controller = state.controller;
        objc::Send<"viewWillLayoutSubviews", void>(As<ui::ViewController>(controller));
        objc::Send<"layoutSubviews", void>(view);
        objc::Send<"viewDidLayoutSubviews", void>(As<ui::ViewController>(controller));
    }
    for (const objc::Ref<ui::View> &child : std::vector(state.subviews)) {
        LayoutIfNeeded(child.get());
    }
}

} // namespace sim
