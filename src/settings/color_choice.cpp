#include "settings/color_choice.hpp"

#include "apple/foundation/user_defaults.hpp"
#include "matrix/panel.hpp"
#include "overlay/action_target.hpp"
#include "overlay/presentation.hpp"
#include "overlay/state.hpp"
#include "settings/color_components.hpp"
#include "settings/settings_panel.hpp"
#include "settings/settings_rows.hpp"

namespace corvel {
namespace {

/// On a picker: the preference key that takes its colour.
constexpr objc::AssociationKey kPickerPreferenceKey{"target_key"};

} // namespace

void HandleColorButton(objc::Class, objc::SEL, ui::Button button) {
    const auto key = objc::GetAssociated<ns::String>(button, kRowPreferenceKey);
    if (!key) {
        return;
    }
    const auto picker = ns::New<ui::ColorPickerViewController>();
    picker->setDelegate(ActionTarget());
    objc::SetAssociated(picker, kPickerPreferenceKey, key);
    PresentOnTop(picker, nullptr);
}

void HandleColorPicked(objc::Class, objc::SEL, ui::ColorPickerViewController picker) {
    const auto key = objc::GetAssociated<ns::String>(picker, kPickerPreferenceKey);
    if (!key) {
        return;
    }
    const auto store = ns::UserDefaults::standardUserDefaults();
    store.setObject(HexText(picker.selectedColor()).get(), key);
    store.synchronize();
    LayoutMatrix();
    // In this order there is nothing left to rebuild: the panel closes once a colour has been chosen. That is wanted.
    OverlayState &overlay = Overlay();
    overlay.settingsPanel->removeFromSuperview();
    overlay.settingsPanel = nullptr;
    RebuildSettingsPanel();
}

} // namespace corvel
