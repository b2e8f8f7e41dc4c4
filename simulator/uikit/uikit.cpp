#include "uikit/uikit.hpp"

#include "uikit/alert_controller.hpp"
#include "uikit/application.hpp"
#include "uikit/bar_item.hpp"
#include "uikit/button.hpp"
#include "uikit/color.hpp"
#include "uikit/color_picker.hpp"
#include "uikit/control.hpp"
#include "uikit/effects.hpp"
#include "uikit/event.hpp"
#include "uikit/font.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/haptics.hpp"
#include "uikit/image.hpp"
#include "uikit/keyboard.hpp"
#include "uikit/label.hpp"
#include "uikit/layer.hpp"
#include "uikit/pasteboard.hpp"
#include "uikit/responder.hpp"
#include "uikit/scene.hpp"
#include "uikit/screen.hpp"
#include "uikit/scroll_view.hpp"
#include "uikit/segmented_control.hpp"
#include "uikit/slider.hpp"
#include "uikit/switch.hpp"
#include "uikit/text_field.hpp"
#include "uikit/text_measuring.hpp"
#include "uikit/text_view.hpp"
#include "uikit/toolbar.hpp"
#include "uikit/view.hpp"
#include "uikit/view_controller.hpp"
#include "uikit/window.hpp"

namespace sim {

void RegisterUIKit() {
    RegisterColor();
    RegisterFont();
    RegisterTextMeasuring();
    RegisterHaptics();
    RegisterLayer();
    RegisterScreen();
    RegisterEvent();
    RegisterResponder();
    RegisterApplication();
    RegisterScene();
    RegisterGestureRecognizer();
    RegisterTapGestureRecognizer();
    RegisterLongPressGestureRecognizer();
    RegisterPanGestureRecognizer();
    RegisterView();
    RegisterImage();
    RegisterWindow();
    RegisterViewController();
    RegisterLabel();
    RegisterEffects();
    RegisterControl();
    RegisterButton();
    RegisterSwitch();
    RegisterSlider();
    RegisterSegmentedControl();
    RegisterTextField();
    RegisterColorPicker();
    RegisterScrollView();
    RegisterTextView();
    RegisterBarItem();
    RegisterToolbar();
    RegisterKeyboard();
    RegisterAlertController();
    RegisterPasteboard();
}

} // namespace sim
