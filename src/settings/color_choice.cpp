#include "settings/color_choice.hpp"

#include "matrix/colors.hpp"
#include "matrix/matrix_panel.hpp"
#include "overlay/action_target.hpp"
#include "overlay/panel.hpp"
#include "overlay/presentation.hpp"
#include "settings/color_components.hpp"
#include "settings/settings_panel.hpp"
#include "settings/settings_rows.hpp"

namespace corvel {
namespace {

/// On a picker, until its colour is taken: the key of the preference that takes it.
constexpr objc::AssociationKey kPickerPreferenceKey{"target_key"};

} // namespace

void HandleColorButton(objc::Class, objc::SEL, ui::Button button) {
    const ColorRow *row = RowOf(kColors, button);
    if (row == nullptr) {
        return;
    }
    const auto picker = ns::New<ui::ColorPickerViewController>();
    picker->setDelegate(ActionTarget());
    // A picker that is swiped away tells its presentation's delegate only.
    // https://developer.apple.com/documentation/uikit/uiadaptivepresentationcontrollerdelegate
    picker->presentationController().setDelegate(ActionTarget());
    // What is in use now, so that opening and closing the picker changes nothing.
    picker->setSelectedColor(ColorFromHex(row->preference.Read(), 1));
    objc::SetAssociated(picker, kPickerPreferenceKey, row->preference.key());
    PresentOnTop(picker, nullptr);
}

void HandleColorPicked(objc::Class, objc::SEL, ui::ColorPickerViewController picker) {
    const ColorRow *row = RowWithKey(kColors, objc::GetAssociated<ns::String>(picker, kPickerPreferenceKey));
    if (row == nullptr) {
        return;
    }
    objc::SetAssociated(picker, kPickerPreferenceKey, nullptr); // once, should both ways out be told
    row->preference.Write(HexText(picker.selectedColor()));
    LayoutMatrix();
    // In this order there is nothing left to rebuild: the panel closes once a colour has been chosen. That is wanted.
    SettingsPanel().Remove();
    RebuildSettingsPanel();
}

void HandlePickerSwipedAway(objc::Class cls, objc::SEL selector, ui::PresentationController controller) {
    HandleColorPicked(cls, selector, objc::As<ui::ColorPickerViewController>(controller.presentedViewController()));
}

} // namespace corvel
