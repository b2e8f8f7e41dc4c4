#include "overlay/capture.hpp"

#include "apple/dispatch/queue.hpp"
#include "apple/uikit/image.hpp"
#include "overlay/haptic.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"

namespace corvel {
namespace {

/// Long enough for the hidden overlay to be gone from the screen.
constexpr std::int64_t kHidingNanoseconds = 200'000'000;

/// Draws the key window, shows the overlay again and saves the picture when there is one. Reports nothing.
void CaptureKeyWindowToAlbum() {
    const ui::Window window = FindKeyWindow();
    const cg::Rect bounds = window.bounds();
    UIGraphicsBeginImageContextWithOptions(bounds.size, false, ui::Screen::mainScreen().scale());
    window.drawViewHierarchyInRect(bounds, true);
    const ui::Image image{UIGraphicsGetImageFromCurrentImageContext()};
    UIGraphicsEndImageContext();
    Overlay().window->setHidden(false);
    if (image) {
        UIImageWriteToSavedPhotosAlbum(image, nullptr, nullptr, nullptr);
    }
}

} // namespace

void StartCapture() {
    PlayImpactHaptic();
    Overlay().window->setHidden(true);
    dispatch::AfterOnMain(kHidingNanoseconds, [] { CaptureKeyWindowToAlbum(); });
}

void HandleCaptureTap(objc::Class, objc::SEL) {
    StartCapture();
}

} // namespace corvel
