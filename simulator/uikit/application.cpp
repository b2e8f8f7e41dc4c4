#include "uikit/application.hpp"

#include "runtime/native_class.hpp"
#include "uikit/array.hpp"
#include "uikit/responder.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/touch_delivery.hpp"

namespace sim {
namespace {

// A set whose objects come out in the order in which they went in: the phone's own order is arbitrary but stable, and a
// simulated phone must do the same at every run.

struct OrderedSetState {
    objc::Ref<ns::Array> objects;
};

struct SceneSet : ns::Set {
    using ns::Set::Set;
    static constexpr const char *kClassName = "SimulatedSceneSet";
};

ns::Array ObjectsOf(SceneSet set) {
    return StateOf<OrderedSetState>(set).objects;
}

unsigned long Count(SceneSet self, objc::SEL) {
    return ObjectsOf(self).count();
}

ns::Object Member(SceneSet self, objc::SEL, ns::Object object) {
    const ns::Array objects = ObjectsOf(self);
    for (unsigned long i = 0; i < objects.count(); ++i) {
        if (objects.objectAtIndex(i).isEqual(object)) {
            return objects.objectAtIndex(i);
        }
    }
    return {};
}

ns::Object ObjectEnumerator(SceneSet self, objc::SEL) {
    return objc::Send<"objectEnumerator", ns::Object>(ObjectsOf(self));
}

ns::Array AllObjects(SceneSet self, objc::SEL) {
    return ObjectsOf(self);
}

ns::Object AnyObject(SceneSet self, objc::SEL) {
    return ObjectsOf(self).firstObject();
}

ui::Application SharedApplication(ui::Application, objc::SEL) {
    static const auto &application = *new objc::Ref<ui::Application>(ns::New<ui::Application>());
    return application;
}

ns::Set ConnectedScenesOf(ui::Application, objc::SEL) {
    const SceneSet set{objc::Send<"autorelease", ns::Object>(objc::SendClass<SceneSet, "new", ns::Object>()).pointer};
    StateOf<OrderedSetState>(set).objects = ArrayOf(ConnectedScenes());
    return set;
}

ns::Array Windows(ui::Application, objc::SEL) {
    return ArrayOf(WindowsOf(nullptr));
}

ui::Window KeyWindow(ui::Application, objc::SEL) {
    return ApplicationKeyWindow();
}

/// UIApplicationState: 0 active, 1 inactive, 2 background; the best that any scene is in.
long ApplicationState(ui::Application, objc::SEL) {
    long best = 2;
    for (const ui::WindowScene scene : ConnectedScenes()) {
        const long state = SceneStateOf(scene).activationState;
        best = state >= 0 && state < best ? state : best;
    }
    return best;
}

void SendEvent(ui::Application, objc::SEL, ui::Event event) {
    for (const ui::Window window : WindowsTouchedBy(event)) {
        objc::Send<"sendEvent:", void>(window, event);
    }
}

bool SendAction(ui::Application, objc::SEL, objc::SEL action, ns::Object target, ns::Object sender, ui::Event event) {
    if (!target) {
        // Without a target the action goes to the first responder up the chain that answers to it.
        const bool inChain = sender.isKindOfClass(objc::ClassOf<ui::Responder>());
        for (ui::Responder step = inChain ? ui::Responder{sender.pointer} : FirstResponder(); step;
             step = objc::Send<"nextResponder", ui::Responder>(step)) {
            if (step.respondsToSelector(action)) {
                target = step;
                break;
            }
        }
    }
    if (!target || action == nullptr) {
        return false;
    }
    target.performSelector(action, sender, event); // a method that takes fewer arguments leaves the rest alone
    return true;
}

} // namespace

ui::View HitTestScreen(cg::Point point) {
    return HitTestWindows(point, nullptr);
}

void RegisterApplication() {
    const objc::MethodEntry setMethods[] = {
        objc::MethodNamed<"count", &Count>(),
        objc::MethodNamed<"member:", &Member>(),
        objc::MethodNamed<"objectEnumerator", &ObjectEnumerator>(),
        objc::MethodNamed<"allObjects", &AllObjects>(),
        objc::MethodNamed<"anyObject", &AnyObject>(),
    };
    RegisterClassWithState<OrderedSetState>(SceneSet::kClassName, "NSSet", setMethods);
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"connectedScenes", &ConnectedScenesOf>(),
        objc::MethodNamed<"windows", &Windows>(),
        objc::MethodNamed<"keyWindow", &KeyWindow>(),
        objc::MethodNamed<"applicationState", &ApplicationState>(),
        objc::MethodNamed<"sendEvent:", &SendEvent>(),
        objc::MethodNamed<"sendAction:to:from:forEvent:", &SendAction>(),
    };
    const objc::MethodEntry classMethods[] = {
        objc::MethodNamed<"sharedApplication", &SharedApplication>(),
    };
    RegisterClass("UIApplication", "UIResponder", methods, classMethods);
}

} // namespace sim
