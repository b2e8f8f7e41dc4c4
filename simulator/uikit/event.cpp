#include "uikit/event.hpp"

#include "runtime/native_class.hpp"
#include "uikit/array.hpp"
#include "uikit/classes.hpp"
#include "uikit/view_geometry.hpp"

namespace sim {
namespace {

/// The event's touches that the test picks.
template <class Test> ns::Set Select(const EventState &event, Test test) {
    std::vector<ui::Touch> chosen;
    for (const objc::Ref<ui::Touch> &touch : event.touches) {
        if (test(TouchStateOf(touch))) {
            chosen.push_back(touch);
        }
    }
    return objc::SendClass<ns::Set, "setWithArray:", ns::Set>(MakeArray(chosen));
}

void DefineTouch() {
    auto touch = Class<TouchState>("UITouch", "NSObject");
    touch.ReadOnly<"phase", &TouchState::phase>();
    touch.ReadOnly<"timestamp", &TouchState::timestamp>();
    touch.ReadOnly<"tapCount", &TouchState::tapCount>();
    touch.ReadOnly<"view", &TouchState::view>();
    touch.ReadOnly<"window", &TouchState::window>();
    touch.Method<"locationInView:">(
        [](const TouchState &state, ui::View view) { return LocationInView(state.location, view, state.window); });
    touch.Method<"previousLocationInView:">([](const TouchState &state, ui::View view) {
        return LocationInView(state.previousLocation, view, state.window);
    });
    touch.Method<"gestureRecognizers">([](const TouchState &state) { return MakeArray(state.recognizers); });
}

} // namespace

void DefineEvent() {
    DefineTouch();
    auto event = Class<EventState>("UIEvent", "NSObject");
    event.Method<"type">([](const EventState &) { return 0L; }); // UIEventTypeTouches
    event.ReadOnly<"timestamp", &EventState::timestamp>();
    event.Method<"allTouches">(
        [](const EventState &state) { return Select(state, [](const TouchState &) { return true; }); });
    event.Method<"touchesForView:">([](const EventState &state, ui::View view) {
        return Select(state, [view](const TouchState &touch) { return touch.view.get() == view; });
    });
    event.Method<"touchesForWindow:">([](const EventState &state, ui::Window window) {
        return Select(state, [window](const TouchState &touch) { return touch.window.get() == window; });
    });
}

TouchState &TouchStateOf(ui::Touch touch) {
    return StateOf<TouchState>(touch);
}

EventState &EventStateOf(ui::Event event) {
    return StateOf<EventState>(event);
}

cg::Point LocationInView(cg::Point screenPoint, ui::View view, ui::Window window) {
    if (!view) {
        view = window;
    }
    return view ? FromScreen(view, screenPoint) : screenPoint;
}

} // namespace sim
