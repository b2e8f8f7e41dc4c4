#include "settings/reset.hpp"

#include "apple/uikit/alert_controller.hpp"
#include "matrix/panel.hpp"
#include "overlay/capture_button.hpp"
#include "overlay/presentation.hpp"
#include "overlay/state.hpp"
#include "overlay/toast.hpp"
#include "settings/own_keys.hpp"

namespace corvel {

void HandleReset(objc::Class, objc::SEL) {
    const auto alert = ui::AlertController::alertControllerWithTitle(u"清除配置"_ns, u"确定清除所有插件配置？"_ns,
                                                                     ui::AlertControllerStyle::kAlert);
    alert.addAction(ui::AlertAction::actionWithTitle(u"取消"_ns, ui::AlertActionStyle::kCancel, nullptr));
    alert.addAction(ui::AlertAction::actionWithTitle(
        u"确定清除"_ns, ui::AlertActionStyle::kDestructive,
        objc::MakeBlock<void(ui::AlertAction)>([](ui::AlertAction) { ResetConfiguration(); })));
    PresentOnTop(alert, nullptr);
}

void ResetConfiguration() {
    const auto store = ns::UserDefaults::standardUserDefaults();
    VisitOwnKeys(store, [&](ns::String key) { store.removeObjectForKey(key); });
    store.synchronize();
    OverlayState &overlay = Overlay();
    overlay.matrixPanel->removeFromSuperview();
    overlay.matrixPanel = nullptr;
    overlay.matrixContainer = nullptr;
    overlay.settingsPanel->removeFromSuperview();
    overlay.settingsPanel = nullptr;
    RebuildCaptureButton(); // which leaves none: its switch is off by default
    LayoutMatrix();
    ShowToast(u"已清除"_ns);
}

} // namespace corvel
