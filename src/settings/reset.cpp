#include "settings/reset.hpp"

#include "matrix/matrix_panel.hpp"
#include "overlay/capture_button.hpp"
#include "overlay/panel.hpp"
#include "overlay/toast.hpp"
#include "preferences/own_keys.hpp"
#include "settings/alert.hpp"

namespace corvel {

void HandleReset(objc::Class, objc::SEL) {
    Alert(u"清除配置"_ns, u"确定清除所有插件配置？"_ns)
        .Cancel(u"取消"_ns)
        .Answer(u"确定清除"_ns, UIAlertActionStyleDestructive, [] { ResetConfiguration(); })
        .Present();
}

void ResetConfiguration() {
    RemovePanels(); // first: a field that is being edited stores its number as it goes
    VisitOwnKeys(ns::UserDefaults::standardUserDefaults(), [](ns::String key) { StoreObject(key, nullptr); });
    SynchronizeDefaults();
    RebuildCaptureButton(); // which leaves none: its switch is off by default
    LayoutMatrix();
    ShowToast(u"已清除"_ns);
}

} // namespace corvel
