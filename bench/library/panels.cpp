// Opening the matrix and the settings panel.

#include "bare_matrix.hpp"
#include "bare_settings.hpp"
#include "configuration.hpp"
#include "matrix/matrix_panel.hpp"
#include "measure.hpp"
#include "overlay/panel.hpp"
#include "preferences/preferences.hpp"
#include "settings/settings_panel.hpp"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace bench {
namespace {

/// Whether both are of the same classes in the same order, all the way down.
bool HaveSameViews(ui::View one, ui::View other) {
    const objc::Ref<ns::Array> views = one.subviews();
    const objc::Ref<ns::Array> others = other.subviews();
    bool same =
        objc::object_getClass(one.pointer) == objc::object_getClass(other.pointer) && views->count() == others->count();
    for (unsigned long i = 0; same && i < views->count(); ++i) {
        same = HaveSameViews(objc::As<ui::View>(views->objectAtIndex(i)), objc::As<ui::View>(others->objectAtIndex(i)));
    }
    return same;
}

/// Ends the run when the floor has made other views than the library: it would be no floor.
void RequireSameViews(ui::View ours, ui::View bare) {
    if (!HaveSameViews(ours, bare)) {
        std::fprintf(stderr, "the bare views are not those of the library\n");
        std::exit(1);
    }
}

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
    corvel::HandleFloatTap(nullptr, nullptr);
    RequireSameViews(corvel::MatrixPanel().view(), bare);
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
    corvel::BuildSettingsPanel();
    RequireSameViews(corvel::SettingsPanel().view(), bare);
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
