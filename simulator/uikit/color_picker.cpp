#include "uikit/color_picker.hpp"

#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/classes.hpp"
#include "uikit/color_picker_view.hpp"
#include "uikit/view_controller.hpp"

namespace sim {
namespace {

using ui::ColorPickerViewController;

struct PickerState {
    WeakObject delegate;
    objc::Ref<ui::Color> selected = ui::Color::blackColor();
    bool supportsAlpha = true;
};

/// Sends the delegate a message that it may leave unimplemented.
template <objc::FixedString Name> void TellDelegate(ColorPickerViewController picker) {
    const objc::Ref<ns::Object> delegate = StateOf<PickerState>(picker).delegate.Lock();
    if (delegate->respondsToSelector(objc::Selector<Name>())) {
        objc::Send<Name, void>(delegate.get(), picker);
    }
}

/// The user is done, by ✕; who swipes the sheet down is not: the delegate is told as the sheet starts to go.
/// https://developer.apple.com/documentation/uikit/uicolorpickerviewcontrollerdelegate
void Finish(ColorPickerViewController self) {
    self.dismissViewControllerAnimated(true, nullptr);
    TellDelegate<"colorPickerViewControllerDidFinish:">(self);
}

/// Its view, once there is one, follows the colour.
void ShowColor(ColorPickerViewController picker) {
    if (const ui::View view = StateOf<ControllerState>(picker).view) {
        ShowPickedColor(view);
    }
}

} // namespace

void DefineColorPicker() {
    auto picker = Class<PickerState>("UIColorPickerViewController", "UIViewController");
    picker.Property<"delegate", &PickerState::delegate>();
    picker.Property<"selectedColor", &PickerState::selected>([](ColorPickerViewController self) { ShowColor(self); });
    picker.Property<"supportsAlpha", &PickerState::supportsAlpha>();
    picker.Method<"loadView">(
        [](ColorPickerViewController self) { objc::Send<"setView:", void>(self, MakeColorPickerView(self).get()); });
    picker.Method<"_finish", &Finish>();
    DefineColorPickerView();
}

ColorPickerViewController PresentedColorPicker() {
    for (const ui::Window window : WindowsFrontToBack()) {
        for (ui::ViewController controller = window.rootViewController(); controller;
             controller = controller.presentedViewController()) {
            if (controller.isKindOfClass(objc::ClassOf<ColorPickerViewController>())) {
                return objc::As<ColorPickerViewController>(controller);
            }
        }
    }
    return {};
}

bool SupportsAlpha(ColorPickerViewController picker) {
    return StateOf<PickerState>(picker).supportsAlpha;
}

void ChooseColor(ColorPickerViewController picker, ui::Color color) {
    StateOf<PickerState>(picker).selected = color;
    ShowColor(picker);
    TellDelegate<"colorPickerViewControllerDidSelectColor:">(picker);
}

} // namespace sim
