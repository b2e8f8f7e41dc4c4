#include "uikit/event.hpp"

#include "runtime/native_class.hpp"
#include "uikit/array.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

namespace sim {
namespace {

TouchPhase Phase(ui::Touch self, objc::SEL) {
    return TouchStateOf(self).phase;
}

double Timestamp(ui::Touch self, objc::SEL) {
    return TouchStateOf(self).timestamp;
}

unsigned long TapCount(ui::Touch self, objc::SEL) {
    return TouchStateOf(self).tapCount;
}

ui::View View(ui::Touch self, objc::SEL) {
    return TouchStateOf(self).view;
}

ui::Window Window(ui::Touch self, objc::SEL) {
    return TouchStateOf(self).window;
}

cg::Point Location(ui::Touch self, objc::SEL, ui::View view) {
    const TouchState &state = TouchStateOf(self);
    return LocationInView(state.location, view, state.window);
}

cg::Point PreviousLocation(ui::Touch self, objc::SEL, ui::View view) {
    const TouchState &state = TouchStateOf(self);
    return LocationInView(state.previousLocation, view, state.window);
}

ns::Array GestureRecognizers(ui::Touch self, objc::SEL) {
    return ArrayOf(TouchStateOf(self).recognizers);
}

/// The event's touches that the test picks.
template <class Test> ns::Set Select(ui::Event event, Test test) {
    std::vector<ui::Touch> chosen;
    for (const objc::Ref<ui::Touch> &touch : EventStateOf(event).touches) {
        if (test(TouchStateOf(touch))) {
            chosen.push_back(touch);
        }
    }
    return objc::SendClass<ns::Set, "setWithArray:", ns::Set>(ArrayOf(chosen));
}

ns::Set AllTouches(ui::Event self, objc::SEL) {
    return Select(self, [](const TouchState &) { return true; });
}

ns::Set TouchesForView(ui::Event self, objc::SEL, ui::View view) {
    return Select(self, [view](const TouchState &touch) { return touch.view.get() == view; });
}

ns::Set TouchesForWindow(ui::Event self, objc::SEL, ui::Window window) {
    return Select(self, [window](const TouchState &touch) { return touch.window.get() == window; });
}

double EventTimestamp(ui::Event self, objc::SEL) {
    return EventStateOf(self).timestamp;
}

/// UIEventTypeTouches.
long Type(ui::Event, objc::SEL) {
    return 0;
}

} // namespace

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

void RegisterEvent() {
    const objc::MethodEntry touchMethods[] = {
        objc::MethodNamed<"phase", &Phase>(),
        objc::MethodNamed<"timestamp", &Timestamp>(),
        objc::MethodNamed<"tapCount", &TapCount>(),
        objc::MethodNamed<"view", &View>(),
        objc::MethodNamed<"window", &Window>(),
        objc::MethodNamed<"locationInView:", &Location>(),
        objc::MethodNamed<"previousLocationInView:", &PreviousLocation>(),
        objc::MethodNamed<"gestureRecognizers", &GestureRecognizers>(),
    };
    RegisterClassWithState<TouchState>("UITouch", "NSObject", touchMethods);
    const objc::MethodEntry eventMethods[] = {
        objc::MethodNamed<"type", &Type>(),
        objc::MethodNamed<"timestamp", &EventTimestamp>(),
        objc::MethodNamed<"allTouches", &AllTouches>(),
        objc::MethodNamed<"touchesForView:", &TouchesForView>(),
        objc::MethodNamed<"touchesForWindow:", &TouchesForWindow>(),
    };
    RegisterClassWithState<EventState>("UIEvent", "NSObject", eventMethods);
}

} // namespace sim
