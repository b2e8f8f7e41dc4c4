// UIView: what a touch hits, gesture recognisers and the end of editing.

#include "uikit/array.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/responder.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"
#include "uikit/view_parts.hpp"

#include <algorithm>
#include <ranges>

namespace sim {
namespace {

ui::View HitTest(ui::View self, cg::Point point, ui::Event event) {
    constexpr double kLeastAlpha = 0.01;
    const ViewState &state = ViewStateOf(self);
    if (state.hidden || !state.userInteractionEnabled || state.model.alpha < kLeastAlpha ||
        AnimationSuspendsInteraction(self) || !objc::Send<"pointInside:withEvent:", bool>(self, point, event)) {
        return {};
    }
    const std::vector<objc::Ref<ui::View>> subviews = state.subviews;
    for (const objc::Ref<ui::View> &child : std::views::reverse(subviews)) {
        if (const ui::View hit = child->hitTest(FromSuperview(ViewStateOf(child).model, point), event)) {
            return hit;
        }
    }
    return self;
}

void RemoveGestureRecognizer(ui::View self, ui::GestureRecognizer recognizer) {
    auto &recognizers = ViewStateOf(self).recognizers;
    const auto place = std::ranges::find(recognizers, recognizer, &objc::Ref<ui::GestureRecognizer>::get);
    if (place == recognizers.end()) {
        return;
    }
    const objc::Ref<ui::GestureRecognizer> keep = *place;
    recognizers.erase(place);
    CancelRecognizer(keep);
    SetRecognizerView(keep, nullptr);
}

void AddGestureRecognizer(ui::View self, ui::GestureRecognizer recognizer) {
    if (!recognizer) {
        return;
    }
    const objc::Ref<ui::GestureRecognizer> keep = recognizer;
    if (const ui::View old = recognizer.view()) {
        RemoveGestureRecognizer(old, recognizer);
    }
    ViewStateOf(self).recognizers.push_back(keep);
    SetRecognizerView(recognizer, self);
}

} // namespace

void DefineViewTouches(ViewClass &view) {
    view.Property<"isUserInteractionEnabled", &ViewState::userInteractionEnabled>();
    view.Property<"isMultipleTouchEnabled", &ViewState::multipleTouchEnabled>();
    view.Method<"hitTest:withEvent:", &HitTest>();
    view.Method<"pointInside:withEvent:">(
        [](const ViewState &state, cg::Point point, ui::Event) { return Contains(state.model.bounds, point); });
    view.Method<"gestureRecognizers">(
        [](const ViewState &state) { return state.recognizers.empty() ? ns::Array{} : MakeArray(state.recognizers); });
    view.Method<"addGestureRecognizer:", &AddGestureRecognizer>();
    view.Method<"removeGestureRecognizer:", &RemoveGestureRecognizer>();
    view.Method<"gestureRecognizerShouldBegin:">([](ui::View, ui::GestureRecognizer) { return true; });
    view.Method<"endEditing:">([](ui::View self, bool) {
        const ui::Responder responder = FirstResponder();
        for (ui::Responder step = responder; step; step = step.nextResponder()) {
            if (step == self) {
                return responder.resignFirstResponder();
            }
        }
        return false;
    });
}

} // namespace sim
