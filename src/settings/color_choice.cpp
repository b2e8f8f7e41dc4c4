#include "settings/color_choice.hpp"

#include "matrix/matrix_panel.hpp"
#include "overlay/action_target.hpp"
#include "overlay/panel.hpp"
#include "overlay/presentation.hpp"
#include "settings/color_components.hpp"
#include "settings/settings_panel.hpp"
#include "settings/settings_rows.hpp"

#include <algorithm>
#include <iterator>

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
    const auto *const row =
        std::ranges::find_if(kColors, [&](const ColorRow &each) { return each.preference.Is(key); });
    if (row == std::end(kColors)) {
        return;
    }
    row->preference.Write(HexText(picker.selectedColor()));
    LayoutMatrix();
    // In this order there is nothing left to rebuild: the panel closes once a colour has been chosen. That is wanted.
    SettingsPanel().Remove();
    RebuildSettingsPanel();
}

} // namespace corvel
