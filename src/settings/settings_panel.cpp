#include "settings/settings_panel.hpp"

#include "matrix/panel.hpp"
#include "overlay/gesture_proxy.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"
#include "settings/settings_sections.hpp"
#include "settings/settings_views.hpp"

namespace corvel {
namespace {

constexpr cg::Size kPanelSize{kSettingsWidth, 500};
constexpr double kTitleHeight = 45;

void AddRecognizers(ui::View panel) {
    AddRecognizer<ui::PanGestureRecognizer>(panel, objc::Selector<"dm_pM:">()).setDelegate(SharedGestureProxy());
    // The controls are to get their taps.
    AddRecognizer<ui::TapGestureRecognizer>(panel, objc::Selector<"dm_bm">()).setCancelsTouchesInView(false);
}

void AddTitleBar(ui::View content) {
    const ui::Label title = AddLabel(content, {{0, 0}, {kSettingsWidth, kTitleHeight}}, u"设置中心"_ns,
                                     ui::Font::boldSystemFontOfSize(17), ui::Color::labelColor());
    title.setTextAlignment(ui::TextAlignment::kCenter);
    AddSystemButton(content, {{260, 5}, {35, 35}}, u"✕"_ns, ui::Color::redColor(), objc::Selector<"dm_cm">());
}

/// A panel with all it holds, in no window yet.
objc::Ref<ui::VisualEffectView> MakePanel(cg::Rect frame) {
    const auto panel = objc::Ref<ui::VisualEffectView>::Adopt(ns::Alloc<ui::VisualEffectView>().initWithEffect(
        ui::BlurEffect::effectWithStyle(ui::BlurStyle::kSystemMaterial)));
    panel->setFrame(frame);
    panel->layer().setCornerRadius(14);
    panel->setClipsToBounds(true);
    AddRecognizers(panel);
    AddTitleBar(panel->contentView());
    const auto scrollView =
        MakeView<ui::ScrollView>({{0, kTitleHeight}, {kSettingsWidth, kPanelSize.height - kTitleHeight}});
    panel->contentView().addSubview(scrollView);
    AddSettingsContent(panel, scrollView);
    return panel;
}

/// Puts a new panel into the overlay window, in the place of any other. False without such a window.
bool PlacePanel(cg::Rect frame) {
    OverlayState &overlay = Overlay();
    overlay.settingsPanel->removeFromSuperview(); // one that fades out still
    overlay.settingsPanel = nullptr;
    StoreMissingFoldStates();
    // A change of the store may have taken the overlay down: WeChat's switch is looked at then.
    if (!overlay.window) {
        return false;
    }
    overlay.settingsPanel = MakePanel(frame);
    overlay.window->addSubview(overlay.settingsPanel);
    LayoutSettingsSections();
    return true;
}

void SpringIn(ui::View view) {
    const objc::Ref<ui::View> panel = view;
    panel->setAlpha(0);
    panel->setTransform(cg::AffineTransform::Scale(0.8, 0.8));
    ui::View::animateWithDuration(0.3, 0, 0.7, 0.5, 0, objc::MakeBlock<void()>([=] {
                                      panel->setAlpha(1);
                                      panel->setTransform(cg::AffineTransform::Identity());
                                  }),
                                  nullptr);
}

cg::Rect CenteredAt(cg::Point center) {
    return {{center.x - kPanelSize.width / 2, center.y - kPanelSize.height / 2}, kPanelSize};
}

} // namespace

void BuildSettingsPanel() {
    const cg::Rect screen = ui::Screen::mainScreen().bounds();
    const cg::Point middle{screen.origin.x + screen.size.width / 2, screen.origin.y + screen.size.height / 2};
    if (PlacePanel(CenteredAt(middle))) {
        SpringIn(Overlay().settingsPanel);
        RaisePanel(Overlay().settingsPanel);
    }
}

void RebuildSettingsPanel() {
    const OverlayState &overlay = Overlay();
    if (!overlay.settingsPanel) {
        return;
    }
    // Told by the centre: the frame of a panel that springs in or fades out is a shrunk one.
    const cg::Rect kept = CenteredAt(overlay.settingsPanel->center());
    if (PlacePanel(kept)) {
        RaisePanel(overlay.settingsPanel);
    }
}

} // namespace corvel
