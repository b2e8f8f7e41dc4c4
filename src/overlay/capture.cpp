#include "overlay/capture.hpp"

#include "apple/dispatch/queue.hpp"
#include "apple/uikit/image.hpp"
#include "objc/guard.hpp"
#include "overlay/haptic.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"

namespace corvel {
namespace {

/// Long enough for the hidden overlay to be gone from the screen.
constexpr std::int64_t kHidingNanoseconds = 200'000'000;

/// The window as it looks; empty for one without an area, and when a view of the host's raises while it is drawn.
objc::Ref<ui::Image> PictureOf(ui::Window window) {
    const cg::Rect bounds = window.bounds();
    // From iOS 17 on an empty context raises.
    if (!(bounds.size.width > 0 && bounds.size.height > 0)) {
        return {};
    }
    objc::Ref<ui::Image> image;
    UIGraphicsBeginImageContextWithOptions(bounds.size, false, ui::Screen::mainScreen().scale());
    objc::Guard([&] {
        window.drawViewHierarchyInRect(bounds, true);
        image = ui::Image{UIGraphicsGetImageFromCurrentImageContext()};
    });
    UIGraphicsEndImageContext();
    return image;
}

/// Hides the overlay, so that the host's window below is what the picture shows.
void HideOverlay() {
    const objc::Ref<ui::Window> overlay = Overlay().window;
    overlay->setHidden(true);
    // The last touch has made the overlay key, and it may stay so while it is hidden.
    if (overlay->isKeyWindow()) {
        TopmostHostWindow().makeKeyWindow();
    }
}

/// Draws the key window, shows the overlay again and saves the picture when there is one. Reports nothing.
void CaptureKeyWindowToAlbum() {
    const objc::Ref<ui::Image> image = PictureOf(FindKeyWindow());
    Overlay().window->setHidden(false);
    if (image) {
        UIImageWriteToSavedPhotosAlbum(image, nullptr, nullptr, nullptr);
    }
}

} // namespace

void StartCapture() {
    PlayImpactHaptic();
    HideOverlay();
    dispatch::AfterOnMain(kHidingNanoseconds, [] { CaptureKeyWindowToAlbum(); });
}

void HandleCaptureTap(objc::Class, objc::SEL) {
    StartCapture();
}

} // namespace corvel
