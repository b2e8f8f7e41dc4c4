#include "settings/settings_panel.hpp"

#include "apple/uikit/scroll_view.hpp"
#include "overlay/gesture_proxy.hpp"
#include "overlay/haptic.hpp"
#include "overlay/panel.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"
#include "settings/settings_sections.hpp"
#include "settings/settings_views.hpp"

#include <algorithm>

namespace corvel {
namespace {

constexpr cg::Size kPanelSize{kSettingsWidth, 500};
constexpr double kTitleHeight = 45;

void AddRecognizers(ui::View panel) {
    AddRecognizer<ui::PanGestureRecognizer>(panel, objc::Selector<"dm_pM:">()).setDelegate(SharedGestureProxy());
    // The controls are to get their taps.
    const auto tap = AddRecognizer<ui::TapGestureRecognizer>(panel, objc::Selector<"dm_bm">());
    tap.addTarget(ActionTarget(), objc::Selector<"dm_gt:">());
    tap.setCancelsTouchesInView(false);
}

void AddTitleBar(ui::View content) {
    const ui::Label title = AddLabel(content, {{0, 0}, {kSettingsWidth, kTitleHeight}}, u"设置中心"_ns,
                                     ui::Font::boldSystemFontOfSize(17), ui::Color::labelColor());
    title.setTextAlignment(NSTextAlignmentCenter);
    AddSystemButton(content, {{260, 5}, {35, 35}}, u"✕"_ns, ui::Color::redColor(), objc::Selector<"dm_cm">());
}

/// Puts a new panel into the overlay window, in the place of any other (one that fades out still). False without such a
/// window.
bool PlacePanel(cg::Rect frame) {
    SettingsPanel().Remove();
    StoreMissingFoldStates();
    // A change of the store may have taken the overlay down: WeChat's switch is looked at then.
    if (!Overlay().window) {
        return false;
    }
    const auto view = MakePanelView(UIBlurEffectStyleSystemMaterial, frame, 14);
    AddRecognizers(view);
    AddTitleBar(view->contentView());
    const auto scrollView =
        ui::MakeView<ui::ScrollView>({{0, kTitleHeight}, {kSettingsWidth, kPanelSize.height - kTitleHeight}});
    view->contentView().addSubview(scrollView);
    AddSettingsContent(view, scrollView);
    SettingsPanel().Show(view, scrollView.get());
    LayoutSettingsSections();
    return true;
}

cg::Rect CenteredAt(cg::Point center) {
    return {{center.x - kPanelSize.width / 2, center.y - kPanelSize.height / 2}, kPanelSize};
}

/// In the middle of the screen; on one that is lower than the panel, from its top on, so that ✕ can be reached.
cg::Rect PlaceOnScreen() {
    const cg::Rect screen = ui::Screen::mainScreen().bounds();
    cg::Rect frame = CenteredAt({screen.origin.x + screen.size.width / 2, screen.origin.y + screen.size.height / 2});
    frame.origin.y = std::max(frame.origin.y, screen.origin.y);
    return frame;
}

} // namespace

Panel &SettingsPanel() {
    [[clang::no_destroy]] static constinit Panel panel(0.8);
    return panel;
}

void BuildSettingsPanel() {
    if (PlacePanel(PlaceOnScreen())) {
        SettingsPanel().SpringIn(0.3, 1);
        SettingsPanel().Raise();
    }
}

void RebuildSettingsPanel() {
    const ui::View view = SettingsPanel().view();
    // Told by the centre: the frame of a panel that springs in or fades out is a shrunk one.
    if (view && PlacePanel(CenteredAt(view.center()))) {
        SettingsPanel().Raise();
    }
}

void HandleFloatLongPress(objc::Class, objc::SEL, ui::GestureRecognizer recognizer) {
    if (recognizer.state() != UIGestureRecognizerStateBegan) {
        return; // one press toggles once, when it is recognised
    }
    PlayImpactHaptic();
    constexpr double kOpenAlpha = 0.1; // one that is fainter is about to go
    const ui::View view = SettingsPanel().view();
    if (view && view.alpha() > kOpenAlpha) {
        SettingsPanel().Close();
    } else {
        BuildSettingsPanel();
    }
}

void HandleSettingsPanelTap(objc::Class, objc::SEL) {
    SettingsPanel().Raise();
}

void HandleSettingsClose(objc::Class, objc::SEL) {
    SettingsPanel().Close();
}

} // namespace corvel
