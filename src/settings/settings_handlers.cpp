#include "settings/settings_handlers.hpp"

#include "apple/foundation/user_defaults.hpp"
#include "matrix/panel.hpp"
#include "overlay/capture_button.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"
#include "settings/preference_keys.hpp"
#include "settings/settings_panel_closing.hpp"
#include "settings/settings_rows.hpp"

namespace corvel {

void HandleSwitchChange(objc::Class, objc::SEL, ui::Switch control) {
    const auto key = objc::GetAssociated<ns::String>(control, kRowPreferenceKey);
    if (!key) {
        return;
    }
    const auto store = ns::UserDefaults::standardUserDefaults();
    store.setBool(control.isOn(), key);
    store.synchronize();
    if (key.isEqualToString(keys::ShowCaptureButton())) {
        RebuildCaptureButton();
    }
}

void HandleSliderChange(objc::Class, objc::SEL, ui::Slider slider) {
    const auto key = objc::GetAssociated<ns::String>(slider, kRowPreferenceKey);
    if (!key) {
        return;
    }
    const auto store = ns::UserDefaults::standardUserDefaults();
    store.setFloat(slider.value(), key);
    store.synchronize();
    LayoutMatrix();
}

void HandleSettingsPanelTap(objc::Class, objc::SEL) {
    RaisePanel(Overlay().settingsPanel);
}

void HandleSettingsClose(objc::Class, objc::SEL) {
    CloseSettingsPanel();
}

} // namespace corvel
