#include "matrix/panel.hpp"

#include "matrix/cell.hpp"
#include "matrix/colors.hpp"
#include "overlay/haptic.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"
#include "settings/settings_panel_closing.hpp"

namespace corvel {
namespace {

constexpr long kTitleTag = 999;

/// What a panel shrinks to as it closes, and grows from as it opens.
constexpr double kShrunk = 0.9;

bool IsOpen(ui::View panel) {
    return panel && panel.alpha() > 0.01;
}

double MatrixAlpha() {
    return ReadFloatPreference(keys::MatrixAlpha(), 0.9);
}

GridSize StoredGridSize() {
    return GridSizeFor(ReadIntegerPreference(keys::GridPresetIndex()), ReadIntegerPreference(keys::GridCustomColumns()),
                       ReadIntegerPreference(keys::GridCustomRows()));
}

void AddRecognizers(ui::View panel) {
    AddRecognizer<ui::PanGestureRecognizer>(panel, objc::Selector<"dm_pM:">());
    // The cells are to get their taps.
    AddRecognizer<ui::TapGestureRecognizer>(panel, objc::Selector<"dm_bM">()).setCancelsTouchesInView(false);
}

void AddTitle(ui::View container) {
    const auto title = objc::Ref<ui::View>::Adopt(ns::Alloc<ui::Label>().initWithFrame({{0, 8}, {310, 20}}));
    const auto label = objc::As<ui::Label>(title.get());
    label.setTag(kTitleTag);
    label.setText("Corvel"_ns);
    label.setTextAlignment(ui::TextAlignment::kCenter);
    container.addSubview(label);
}

void BuildPanel() {
    OverlayState &overlay = Overlay();
    const auto panel = objc::Ref<ui::VisualEffectView>::Adopt(
        ns::Alloc<ui::VisualEffectView>().initWithEffect(ui::BlurEffect::effectWithStyle(ui::BlurStyle::kDark)));
    panel->setFrame({{50, 150}, {310, 350}});
    panel->layer().setCornerRadius(18);
    panel->setClipsToBounds(true);
    panel->setAlpha(0);
    AddRecognizers(panel);
    const auto container = objc::Ref<ui::View>::Adopt(ns::Alloc<ui::View>().initWithFrame(panel->bounds()));
    panel->contentView().addSubview(container);
    AddTitle(container);
    overlay.window->addSubview(panel);
    overlay.matrixPanel = panel;
    overlay.matrixContainer = container;
}

void OpenPanel() {
    const OverlayState &overlay = Overlay();
    if (!overlay.matrixPanel) {
        BuildPanel();
    }
    const objc::Ref<ui::View> panel = overlay.matrixPanel.get();
    panel->setTransform(cg::AffineTransform::Identity()); // one that is closing still is shrunk
    LayoutMatrix();
    panel->setTransform(cg::AffineTransform::Scale(kShrunk, kShrunk));
    panel->setAlpha(0);
    ui::View::animateWithDuration(0.25, 0, 0.7, 0.5, 0, objc::MakeBlock<void()>([=] {
                                      panel->setAlpha(MatrixAlpha());
                                      panel->setTransform(cg::AffineTransform::Identity());
                                  }),
                                  nullptr);
    RaisePanel(panel);
}

void ClosePanel() {
    const objc::Ref<ui::View> panel = Overlay().matrixPanel.get();
    ui::View::animateWithDuration(0.2, objc::MakeBlock<void()>([=] {
                                      panel->setAlpha(0);
                                      panel->setTransform(cg::AffineTransform::Scale(kShrunk, kShrunk));
                                  }),
                                  objc::MakeBlock<void(bool)>([](bool) {
                                      // Whatever the panel is by now, one that was opened again meanwhile included: a
                                      // view left in the window without its reference could never be closed.
                                      OverlayState &overlay = Overlay();
                                      overlay.matrixPanel->removeFromSuperview();
                                      overlay.matrixPanel = nullptr;
                                      overlay.matrixContainer = nullptr;
                                  }));
}

void LayoutPanel(const GridGeometry &geometry, double scale) {
    const OverlayState &overlay = Overlay();
    overlay.matrixPanel->setFrame({overlay.matrixPanel->frame().origin, geometry.panelSize()});
    overlay.matrixContainer->setFrame({{0, 0}, geometry.panelSize()});
    const auto title = objc::As<ui::Label>(overlay.matrixContainer->viewWithTag(kTitleTag));
    title.setFrame(geometry.TitleFrame());
    title.setTextColor(ui::Color::colorWithWhite(1, 0.6));
    title.setFont(ui::Font::boldSystemFontOfSize(13 * scale));
}

void LayoutCells(ui::View container, GridSize grid, const GridGeometry &geometry, double scale) {
    const CellStyle style(scale);
    for (int index = 0; index < grid.count(); ++index) {
        const ui::View cell = container.viewWithTag(kCellTagBase + index);
        UpdateCell(cell ? objc::As<ui::Button>(cell) : AddCell(container, index), index, geometry, style);
    }
}

/// Cells that the grid has no place for are kept for when it grows again.
void HideCellsFrom(ui::View container, int count) {
    for (const ui::View view : container.subviews()) {
        if (view.tag() >= kCellTagBase + count && ns::Object(view).isKindOfClass(objc::ClassOf<ui::Button>())) {
            view.setHidden(true);
        }
    }
}

} // namespace

void LayoutMatrix() {
    const OverlayState &overlay = Overlay();
    if (!overlay.matrixPanel) {
        return;
    }
    if (IsOpen(overlay.matrixPanel)) {
        overlay.matrixPanel->setAlpha(MatrixAlpha());
    }
    const double buttonAlpha = ReadFloatPreference(keys::FloatButtonAlpha(), 1.0);
    overlay.floatButton->setAlpha(buttonAlpha);
    overlay.captureButton->setAlpha(buttonAlpha);
    overlay.matrixPanel->contentView().setBackgroundColor(
        ReadColorPreference(keys::MatrixBackgroundColor(), "#000000"_ns, 0.5));
    const double scale = ReadFloatPreference(keys::MatrixScale(), 1.0);
    const GridSize grid = StoredGridSize();
    const GridGeometry geometry(grid, scale);
    LayoutPanel(geometry, scale);
    LayoutCells(overlay.matrixContainer, grid, geometry, scale);
    HideCellsFrom(overlay.matrixContainer, grid.count());
}

void HandleFloatTap(objc::Class, objc::SEL) {
    PlayImpactHaptic();
    const OverlayState &overlay = Overlay();
    if (!overlay.window) {
        return;
    }
    const bool settingsOpen = IsOpen(overlay.settingsPanel);
    const bool matrixOpen = IsOpen(overlay.matrixPanel);
    if (settingsOpen) {
        CloseSettingsPanel();
    }
    if (matrixOpen) {
        ClosePanel();
    }
    if (!settingsOpen && !matrixOpen) {
        OpenPanel();
    }
}

void HandlePanelPan(objc::Class, objc::SEL, ui::PanGestureRecognizer recognizer) {
    const ui::View panel = recognizer.view();
    const ui::View space = panel.superview();
    const cg::Point moved = recognizer.translationInView(space);
    const cg::Point center = panel.center();
    panel.setCenter({center.x + moved.x, center.y + moved.y});
    recognizer.setTranslation({0, 0}, space);
    if (recognizer.state() == ui::GestureState::kBegan) {
        RaisePanel(panel);
    }
}

void HandlePanelTap(objc::Class, objc::SEL) {
    RaisePanel(Overlay().matrixPanel);
}

} // namespace corvel
