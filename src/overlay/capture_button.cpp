#include "overlay/capture_button.hpp"

#include "overlay/float_drag.hpp"
#include "overlay/round_button.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"
#include "preferences/preferences.hpp"

namespace corvel {

void RebuildCaptureButton() {
    OverlayState &overlay = Overlay();
    overlay.captureButton->removeFromSuperview();
    overlay.captureButton = nullptr;
    if (!kShowCaptureButton.Read()) {
        return;
    }
    const auto button = MakeRoundButton(u"截"_ns, ui::Color::orangeColor(), objc::Selector<"dm_cap">());
    AddDragRecognizer(button);
    if (overlay.floatButton) {
        button.setCenter(CaptureButtonCenter(overlay.floatButton->center()));
    }
    overlay.captureButton = button;
    overlay.window->addSubview(button);
    RaiseFloatButtons();
}

} // namespace corvel
