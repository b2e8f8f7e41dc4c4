#include "settings/log_viewer.hpp"

#include "apple/uikit/pasteboard.hpp"
#include "diagnostics/debug_log.hpp"
#include "overlay/toast.hpp"
#include "preferences/preferences.hpp"
#include "settings/alert.hpp"
#include "settings/settings_panel.hpp"

namespace corvel {

void ClearLogBuffer() {
    kLogBuffer.Remove();
}

void SetDebugFeatures(bool on) {
    kDebugFeaturesEnabled.Write(on);
    RebuildSettingsPanel();
    ShowToast(on ? u"调试已开启"_ns : u"调试已关闭"_ns);
}

void HandleShowLog(objc::Class, objc::SEL) {
    const objc::Ref<ns::String> log = LogTail(ReadStringPreference(kLogBuffer.key(), u"暂无日志"_ns));
    Alert(u"调试日志"_ns, log)
        // Copies what is shown, the words for an empty log too.
        .Answer(u"复制日志"_ns, UIAlertActionStyleDefault,
                [log] {
                    ui::Pasteboard::generalPasteboard().setString(log);
                    ShowToast(u"已复制"_ns);
                })
        .Answer(u"清空日志"_ns, UIAlertActionStyleDestructive, [] { ClearLogBuffer(); })
        .Cancel(u"关闭"_ns)
        .Present();
}

void HandleClearLog(objc::Class, objc::SEL) {
    ClearLogBuffer();
    ShowToast(u"日志已清除"_ns);
}

void HandleDebugLongPress(objc::Class, objc::SEL, ui::GestureRecognizer recognizer) {
    if (recognizer.state() != UIGestureRecognizerStateBegan) {
        return;
    }
    // What the question said decides, not what the store holds by the time of the answer.
    const bool wasOn = kDebugFeaturesEnabled.Read();
    (wasOn ? Alert(u"关闭调试功能"_ns, u"确认关闭调试日志？"_ns)
           : Alert(u"开启调试功能"_ns, u"开启后可在设置中查看/导出调试日志"_ns))
        .Cancel(u"取消"_ns)
        .Answer(u"确定"_ns, UIAlertActionStyleDefault, [wasOn] { SetDebugFeatures(!wasOn); })
        .Present();
}

void HandleEnableDebug(objc::Class, objc::SEL) {
    SetDebugFeatures(true);
}

} // namespace corvel
