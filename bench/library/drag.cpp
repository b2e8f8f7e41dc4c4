// What a finger that drags the float button or a panel costs at each movement.

#include "matrix/matrix_panel.hpp"
#include "measure.hpp"
#include "overlay/capture_button.hpp"
#include "overlay/float_drag.hpp"
#include "overlay/panel.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"

namespace bench {
namespace {

void MoveBareButton(ui::PanGestureRecognizer recognizer) {
    const ui::Button button = corvel::Overlay().floatButton;
    const ui::View space = recognizer.view().superview();
    const cg::Point moved = recognizer.translationInView(space);
    const cg::Point center = button.center();
    button.setCenter({center.x + moved.x, center.y + moved.y});
    corvel::Overlay().captureButton->setCenter({center.x + moved.x, center.y + moved.y + 60});
    recognizer.setTranslation({0, 0}, space);
    recognizer.state();
}

void MoveBarePanel(ui::PanGestureRecognizer recognizer) {
    const ui::View panel = recognizer.view();
    const ui::View space = panel.superview();
    const cg::Point moved = recognizer.translationInView(space);
    const cg::Point center = panel.center();
    panel.setCenter({center.x + moved.x, center.y + moved.y});
    recognizer.setTranslation({0, 0}, space);
    recognizer.state();
}

} // namespace
} // namespace bench

CORVEL_BENCH BenchDrag() {
    using namespace bench;
    const auto onButton = corvel::AddRecognizer<ui::PanGestureRecognizer>(corvel::Overlay().floatButton.get(),
                                                                          objc::Selector<"dm_panF:">());
    CountPair(
        "drag-button", [&] { corvel::HandleFloatDrag(nullptr, nullptr, onButton); }, [&] { MoveBareButton(onButton); });
    corvel::HandleFloatTap(nullptr, nullptr);
    const auto onPanel =
        corvel::AddRecognizer<ui::PanGestureRecognizer>(corvel::MatrixPanel().view(), objc::Selector<"dm_pM:">());
    CountPair(
        "drag-panel", [&] { corvel::HandlePanelPan(nullptr, nullptr, onPanel); }, [&] { MoveBarePanel(onPanel); });
}
