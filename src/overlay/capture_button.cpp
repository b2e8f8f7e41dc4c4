#include "overlay/capture_button.hpp"

#include "overlay/action_target.hpp"
#include "overlay/float_gestures.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"

namespace corvel {

void RebuildCaptureButton() {
    OverlayState &overlay = Overlay();
    overlay.captureButton->removeFromSuperview();
    overlay.captureButton = nullptr;
    if (!ReadBoolPreference(keys::ShowCaptureButton())) {
        return;
    }
    const auto button = ui::Button::buttonWithType(ui::ButtonType::kCustom);
    button.setBackgroundColor(ui::Color::orangeColor());
    button.layer().setCornerRadius(25);
    button.setTitle(u"截"_ns, ui::kStateNormal);
    button.addTarget(ActionTarget(), objc::Selector<"dm_cap">(), ui::kTouchUpInside);
    AddDragRecognizer(button);
    button.setFrame({{0, 0}, {50, 50}});
    if (overlay.floatButton) {
        button.setCenter(CaptureButtonCenter(overlay.floatButton->center()));
    }
    button.setAlpha(ReadFloatPreference(keys::FloatButtonAlpha(), 1.0));
    overlay.captureButton = button;
    overlay.window->addSubview(button);
    RaiseFloatButtons();
}

} // namespace corvel
