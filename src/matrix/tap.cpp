#include "matrix/tap.hpp"

#include "adapters/hosts.hpp"
#include "matrix/cell.hpp"
#include "overlay/capture.hpp"
#include "overlay/haptic.hpp"
#include "preferences/preferences.hpp"

namespace corvel {
namespace {

constexpr double kPressDuration = 0.1; // seconds, each way

/// Animates the cell to the scale. It takes touches meanwhile: by default an animated view takes none, and the next of
/// several quick taps would be lost. https://developer.apple.com/documentation/uikit/uiview/animationoptions
void AnimateScale(const objc::Ref<ui::Button> &cell, cg::AffineTransform scale, objc::Block<void(bool)> completion) {
    ui::View::animateWithDuration(kPressDuration, 0, UIViewAnimationOptionAllowUserInteraction,
                                  objc::MakeBlock<void()>([=] { cell->setTransform(scale); }), completion);
}

void AnimatePress(const objc::Ref<ui::Button> &cell) {
    AnimateScale(cell, cg::AffineTransform::Scale(0.9, 0.9), objc::MakeBlock<void(bool)>([=](bool) {
                     AnimateScale(cell, cg::AffineTransform::Identity(), nullptr);
                 }));
}

/// Held by the result: what the host does on a send may take the cell down.
objc::Ref<ns::String> TextOf(ui::Button cell) {
    const auto fullText = objc::GetAssociated<ns::String>(cell, kFullText);
    return fullText ? fullText : cell.titleLabel().text();
}

} // namespace

void HandleCellTap(objc::Class, objc::SEL, ui::Button cell) {
    AnimatePress(cell);
    PlayImpactHaptic(); // the user's only sign that the tap was taken
    PresentHost().send(TextOf(cell).get().pointer);
    if (kAutoCaptureAfterSend.Read()) {
        StartCapture();
    }
}

} // namespace corvel
