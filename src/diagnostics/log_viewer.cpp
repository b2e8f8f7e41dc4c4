#include "diagnostics/log_viewer.hpp"

#include "apple/uikit/alert_controller.hpp"
#include "apple/uikit/pasteboard.hpp"
#include "overlay/presentation.hpp"
#include "overlay/toast.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"
#include "settings/settings_panel.hpp"

namespace corvel {
namespace {

ui::AlertController Alert(ns::String title, ns::String message) {
    return ui::AlertController::alertControllerWithTitle(title, message, ui::AlertControllerStyle::kAlert);
}

template <class F> ui::AlertAction Action(ns::String title, ui::AlertActionStyle style, const F &function) {
    return ui::AlertAction::actionWithTitle(
        title, style, objc::MakeBlock<void(ui::AlertAction)>([=](ui::AlertAction) { function(); }));
}

/// The action that only closes its alert.
ui::AlertAction CancelAction(ns::String title) {
    return ui::AlertAction::actionWithTitle(title, ui::AlertActionStyle::kCancel, nullptr);
}

} // namespace

void ClearLogBuffer() {
    const auto store = ns::UserDefaults::standardUserDefaults();
    store.removeObjectForKey(keys::LogBuffer());
    store.synchronize();
}

void SetDebugFeatures(bool on) {
    const auto store = ns::UserDefaults::standardUserDefaults();
    store.setBool(on, keys::DebugFeaturesEnabled());
    store.synchronize();
    RebuildSettingsPanel();
    ShowToast(on ? u"调试已开启"_ns : u"调试已关闭"_ns);
}

void HandleShowLog(objc::Class, objc::SEL) {
    const objc::Ref<ns::String> log = ReadStringPreference(keys::LogBuffer(), u"暂无日志"_ns);
    const auto alert = Alert(u"调试日志"_ns, log);
    // Copies what is shown, the words for an empty log too.
    alert.addAction(Action(u"复制日志"_ns, ui::AlertActionStyle::kDefault, [log] {
        ui::Pasteboard::generalPasteboard().setString(log);
        ShowToast(u"已复制"_ns);
    }));
    alert.addAction(Action(u"清空日志"_ns, ui::AlertActionStyle::kDestructive, [] { ClearLogBuffer(); }));
    alert.addAction(CancelAction(u"关闭"_ns));
    PresentOnTop(alert, nullptr);
}

void HandleClearLog(objc::Class, objc::SEL) {
    ClearLogBuffer();
    ShowToast(u"日志已清除"_ns);
}

void HandleDebugLongPress(objc::Class, objc::SEL, ui::GestureRecognizer recognizer) {
    if (recognizer.state() != ui::GestureState::kBegan) {
        return;
    }
    // What the question said decides, not what the store holds by the time of the answer.
    const bool wasOn = ReadBoolPreference(keys::DebugFeaturesEnabled());
    const auto alert = wasOn ? Alert(u"关闭调试功能"_ns, u"确认关闭调试日志？"_ns)
                             : Alert(u"开启调试功能"_ns, u"开启后可在设置中查看/导出调试日志"_ns);
    alert.addAction(CancelAction(u"取消"_ns));
    alert.addAction(Action(u"确定"_ns, ui::AlertActionStyle::kDefault, [wasOn] { SetDebugFeatures(!wasOn); }));
    PresentOnTop(alert, nullptr);
}

void HandleEnableDebug(objc::Class, objc::SEL) {
    SetDebugFeatures(true);
}

} // namespace corvel
