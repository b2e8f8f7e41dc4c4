// Opening the matrix and the settings panel.

#include "bare_matrix.hpp"
#include "bare_settings.hpp"
#include "configuration.hpp"
#include "matrix/matrix_panel.hpp"
#include "measure.hpp"
#include "overlay/panel.hpp"
#include "preferences/preferences.hpp"
#include "settings/settings_panel.hpp"

#include <string>

namespace bench {
namespace {

void OpenMatrix(int columns, int rows) {
    StoreGrid(columns, rows, 8);
    const MatrixModel model(columns, rows, 8);
    objc::Ref<ui::VisualEffectView> bare;
    CountPair(
        "tap-" + std::to_string(columns * rows),
        [&] {
            corvel::RemovePanels();
            bare->removeFromSuperview();
        },
        [] { corvel::HandleFloatTap(nullptr, nullptr); }, [&] { bare = OpenBareMatrix(model); });
    bare->removeFromSuperview();
}

} // namespace
} // namespace bench

CORVEL_BENCH BenchTap() {
    bench::OpenMatrix(4, 3);
    bench::OpenMatrix(12, 12);
}

CORVEL_BENCH BenchSettings() {
    using namespace bench;
    StoreGrid(4, 4, 0);
    corvel::kGridPresetIndex.Write(0);
    objc::Ref<ui::VisualEffectView> bare;
    const auto remove = [&] {
        corvel::RemovePanels();
        bare->removeFromSuperview();
    };
    CountPair("settings-open", remove, &corvel::BuildSettingsPanel, [&] {
        bare = AddBareSettings(false);
        SpringIn(bare);
    });
    corvel::kLatencySectionCollapsed.Write(false);
    CountPair(
        "settings-rebuild",
        [&] {
            remove();
            corvel::BuildSettingsPanel();
        },
        &corvel::RebuildSettingsPanel,
        [&] {
            corvel::RemovePanels();
            bare = AddBareSettings(true);
        });
    remove();
}
