// Laying the matrix out: from nothing, again, and at every step of a slider.

#include "apple/uikit/slider.hpp"
#include "bare_matrix.hpp"
#include "configuration.hpp"
#include "matrix/cell.hpp"
#include "matrix/matrix_panel.hpp"
#include "matrix/slots.hpp"
#include "measure.hpp"
#include "overlay/panel.hpp"
#include "preferences/preferences.hpp"
#include "settings/settings_rows.hpp"

#include <string>

namespace bench {
namespace {

struct Size {
    int columns;
    int rows;
    unsigned long units;
};

ui::View Content() {
    return corvel::MatrixPanel().content();
}

/// The matrix open with the configuration.
void Open(const Size &size) {
    corvel::RemovePanels();
    StoreGrid(size.columns, size.rows, size.units);
    corvel::HandleFloatTap(nullptr, nullptr);
}

void RemoveCells() {
    std::vector<ui::View> cells;
    for (const ui::View view : Content().subviews()) {
        if (view.tag() >= corvel::kCellTagBase) {
            cells.push_back(view);
        }
    }
    for (const ui::View cell : cells) {
        cell.removeFromSuperview();
    }
}

std::vector<ui::Button> Cells(int count) {
    std::vector<ui::Button> cells;
    for (int index = 0; index < count; ++index) {
        cells.push_back(objc::As<ui::Button>(Content().viewWithTag(corvel::kCellTagBase + index)));
    }
    return cells;
}

ui::Label Title() {
    return objc::As<ui::Label>(Content().viewWithTag(kTitleTag));
}

void SetPanel(const MatrixModel &model) {
    SetBarePanel(corvel::MatrixPanel().view(), Content(), Title(), model);
}

/// The keys of all slots. No cell may show an old text: each layout looks every text up.
std::vector<objc::Ref<ns::String>> SlotKeys(const MatrixModel &model) {
    std::vector<objc::Ref<ns::String>> keys;
    for (int index = 0; index < model.grid.count(); ++index) {
        keys.push_back(corvel::SlotKey(index));
    }
    return keys;
}

ns::String StoredText(ns::String key) {
    return ns::UserDefaults::standardUserDefaults().stringForKey(key);
}

void FirstLayout(const std::string &name, const Size &size) {
    const MatrixModel model(size.columns, size.rows, size.units);
    Open(size);
    CountPair(name, &RemoveCells, &corvel::LayoutMatrix, [&] {
        SetPanel(model);
        AddBareCells(Content(), model);
    });
}

void LayoutAgain(const std::string &name, const Size &size) {
    const MatrixModel model(size.columns, size.rows, size.units);
    Open(size);
    const std::vector<ui::Button> cells = Cells(model.grid.count());
    CountPair(name, &corvel::LayoutMatrix, [&] {
        SetPanel(model);
        SetBareCells(cells, model);
    });
    CountAlso(
        name, [] {},
        [keys = SlotKeys(model)] {
            for (const ns::String key : keys) {
                StoredText(key);
            }
        });
}

} // namespace
} // namespace bench

CORVEL_BENCH BenchFirstLayout() {
    bench::FirstLayout("layout-short", {12, 12, 8});
    bench::FirstLayout("layout-long", {12, 12, 1000});
}

CORVEL_BENCH BenchLayoutAgain() {
    bench::LayoutAgain("layout-again", {12, 12, 8});
}

/// How the cost grows with the number of cells, and with the length of their texts.
CORVEL_BENCH BenchLayoutGrowth() {
    for (const int rows : {1, 2, 4, 6, 8, 10, 12}) {
        const bench::Size size{12, rows, 8};
        bench::FirstLayout("layout-cells-" + std::to_string(12 * rows), size);
        bench::LayoutAgain("again-cells-" + std::to_string(12 * rows), size);
    }
    for (const unsigned long units : {8UL, 32UL, 128UL, 256UL, 512UL, 1000UL, 2000UL, 4000UL}) {
        bench::FirstLayout("layout-units-" + std::to_string(units), {6, 8, units});
    }
}

CORVEL_BENCH BenchSlider() {
    using namespace bench;
    constexpr int kSteps = 100;
    constexpr Size kSize{6, 8, 8};
    Open(kSize);
    const auto slider = ui::MakeView<ui::Slider>({});
    slider->setMinimumValue(0.5F);
    slider->setMaximumValue(1.5F);
    objc::SetAssociated(slider.get(), corvel::kRowPreferenceKey, corvel::kMatrixScale.key());
    const MatrixModel model(kSize.columns, kSize.rows, kSize.units);
    CountPair(
        "slider", &RemoveCells,
        [&] {
            for (int step = 0; step < kSteps; ++step) {
                slider->setValue(0.5F + static_cast<float>(step) / kSteps);
                corvel::HandleSliderChange(nullptr, nullptr, slider);
            }
        },
        [&] {
            for (int step = 0; step < kSteps; ++step) {
                RemoveCells();
                SetPanel(model);
                AddBareCells(Content(), model);
            }
        });
}
