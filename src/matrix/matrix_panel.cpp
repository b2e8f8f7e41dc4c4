#include "matrix/matrix_panel.hpp"

#include "matrix/cell.hpp"
#include "matrix/colors.hpp"
#include "matrix/matrix_look.hpp"
#include "overlay/haptic.hpp"
#include "overlay/panel.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"
#include "preferences/preferences.hpp"

namespace corvel {
namespace {

constexpr long kTitleTag = 999;

void AddRecognizers(ui::View panel) {
    AddRecognizer<ui::PanGestureRecognizer>(panel, objc::Selector<"dm_pM:">());
    // The cells are to get their taps.
    AddRecognizer<ui::TapGestureRecognizer>(panel, objc::Selector<"dm_bM">()).setCancelsTouchesInView(false);
}

void AddTitle(ui::View container) {
    const auto title = ui::MakeView<ui::Label>({{0, 8}, {310, 20}});
    title->setTag(kTitleTag);
    title->setText(kMatrixTitle);
    title->setTextAlignment(NSTextAlignmentCenter);
    container.addSubview(title);
}

void BuildPanel() {
    const auto view = MakePanelView(UIBlurEffectStyleDark, {{50, 150}, {310, 350}}, kPanelCornerRadius);
    view->setAlpha(0);
    AddRecognizers(view);
    const auto container = ui::MakeView<ui::View>(view->bounds());
    view->contentView().addSubview(container);
    AddTitle(container);
    MatrixPanel().Show(view, container);
}

void OpenPanel() {
    Panel &panel = MatrixPanel();
    if (!panel.view()) {
        BuildPanel();
    }
    panel.view().setTransform(cg::AffineTransform::Identity()); // one that is closing still is shrunk
    LayoutMatrix();
    panel.SpringIn(0.25, kMatrixAlpha.Read());
    panel.Raise();
}

void LayoutPanel(const GridGeometry &geometry, double scale) {
    const ui::View view = MatrixPanel().view();
    const ui::View container = MatrixPanel().content();
    view.setFrame({view.frame().origin, geometry.panelSize()});
    container.setFrame({{0, 0}, geometry.panelSize()});
    const auto title = objc::As<ui::Label>(container.viewWithTag(kTitleTag));
    title.setFrame(geometry.TitleFrame());
    title.setTextColor(ui::Color::colorWithWhite(1, kMatrixTitleAlpha));
    title.setFont(ui::Font::boldSystemFontOfSize(kMatrixTitleSize * scale));
}

/// The cell of that index among the content's views, nil when there is none yet. The title is the first view, and cells
/// are added in the order of their tags; a search by tag would look through all of them for each.
ui::View FindCell(ns::ArrayOf<ui::View> views, unsigned long count, int index) {
    const unsigned long place = static_cast<unsigned long>(index) + 1;
    return place < count ? objc::As<ui::View>(views.objectAtIndex(place)) : ui::View{};
}

/// How the cells of the panel were laid out last.
struct CellLayout {
    ui::View container;
    GridSize grid;
    double scale;
    CellStyle style;
    friend bool operator==(const CellLayout &, const CellLayout &) = default;
};
[[clang::no_destroy]] constinit CellLayout lastLayout{};

void LayoutCells(ui::View container, GridSize grid, const GridGeometry &geometry, double scale) {
    const CellLayout layout{container, grid, scale, CellStyle(scale)};
    const bool restyled = !(layout == lastLayout);
    lastLayout = layout;
    const objc::Ref<ns::Array> views = container.subviews();
    const unsigned long count = views->count();
    int index = 0;
    for (; index < grid.count(); ++index) {
        const ui::View cell = FindCell(views.get(), count, index);
        UpdateCell(cell ? objc::As<ui::Button>(cell) : AddCell(container, index), index, geometry, layout.style,
                   restyled);
    }
    // Cells that the grid has no place for are kept for when it grows again.
    while (const ui::View cell = FindCell(views.get(), count, index++)) {
        cell.setHidden(true);
    }
}

} // namespace

Panel &MatrixPanel() {
    [[clang::no_destroy]] static constinit Panel panel(0.9);
    return panel;
}

void LayoutMatrix() {
    const Panel &panel = MatrixPanel();
    if (!panel.view()) {
        return;
    }
    if (panel.IsOpen()) {
        panel.view().setAlpha(kMatrixAlpha.Read());
    }
    const double buttonAlpha = kFloatButtonAlpha.Read();
    Overlay().floatButton->setAlpha(buttonAlpha);
    Overlay().captureButton->setAlpha(buttonAlpha);
    panel.view().contentView().setBackgroundColor(ColorFromHex(kMatrixBackgroundColor.Read(), kMatrixBackgroundAlpha));
    const double scale = kMatrixScale.Read();
    const GridSize grid = StoredGridSize();
    const GridGeometry geometry(grid, scale);
    LayoutPanel(geometry, scale);
    LayoutCells(panel.content(), grid, geometry, scale);
}

void HandleFloatTap(objc::Class, objc::SEL) {
    PlayImpactHaptic();
    if (Overlay().window && !CloseOpenPanels()) {
        OpenPanel();
    }
}

void HandlePanelTap(objc::Class, objc::SEL) {
    MatrixPanel().Raise();
}

} // namespace corvel
