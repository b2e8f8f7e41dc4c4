#include "matrix/tap.hpp"

#include "adapters/hosts.hpp"
#include "matrix/cell.hpp"
#include "overlay/capture.hpp"
#include "preferences/preferences.hpp"

namespace corvel {
namespace {

constexpr double kPressDuration = 0.1; // seconds, each way

void AnimatePress(ui::Button button) {
    const objc::Ref<ui::Button> cell = button;
    ui::View::animateWithDuration(
        kPressDuration, objc::MakeBlock<void()>([=] { cell->setTransform(cg::AffineTransform::Scale(0.9, 0.9)); }),
        objc::MakeBlock<void(bool)>([=](bool) {
            ui::View::animateWithDuration(
                kPressDuration, objc::MakeBlock<void()>([=] { cell->setTransform(cg::AffineTransform::Identity()); }));
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
    PresentHost().send(TextOf(cell).get().pointer);
    if (kAutoCaptureAfterSend.Read()) {
        StartCapture();
    }
}

} // namespace corvel
