#include "uikit/application.hpp"

#include "runtime/lasting.hpp"
#include "runtime/native_class.hpp"
#include "uikit/array.hpp"
#include "uikit/classes.hpp"
#include "uikit/responder.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/touch_delivery.hpp"

#include <algorithm>

namespace sim {
namespace {

struct Shared {
    objc::Ref<ui::Application> application = ns::New<ui::Application>();
};

struct OrderedSetState {
    objc::Ref<ns::Array> objects;
};

struct SceneSet : ns::Set {
    using ns::Set::Set;
    static constexpr const char *kClassName = "SimulatedSceneSet";
};

/// A set that keeps the order in which its objects were added. On the phone the order is arbitrary; here every run must
/// show the same one.
void DefineSceneSet() {
    auto set = Class<OrderedSetState>(SceneSet::kClassName, "NSSet");
    set.Method<"count">([](const OrderedSetState &state) { return state.objects->count(); });
    set.Method<"member:">([](const OrderedSetState &state, ns::Object object) {
        for (const ns::Object member : ns::ArrayOf<ns::Object>(state.objects)) {
            if (member.isEqual(object)) {
                return member;
            }
        }
        return ns::Object{};
    });
    set.Method<"objectEnumerator">(
        [](const OrderedSetState &state) { return objc::Send<"objectEnumerator", ns::Object>(state.objects.get()); });
    set.ReadOnly<"allObjects", &OrderedSetState::objects>();
    set.Method<"anyObject">([](const OrderedSetState &state) { return state.objects->firstObject(); });
}

/// The most active state that any scene has. UIApplicationState numbers the states of a connected scene alike.
long ApplicationState(ui::Application) {
    UISceneActivationState best = UISceneActivationStateBackground;
    for (const ui::WindowScene scene : ConnectedScenes()) {
        const UISceneActivationState state = SceneStateOf(scene).activationState;
        best = state != UISceneActivationStateUnattached ? std::min(best, state) : best;
    }
    return best;
}

/// Where an action without a target goes: the first responder up the chain that answers to it, or nowhere.
ns::Object TargetInChain(objc::SEL action, ns::Object sender) {
    const bool inChain = sender.isKindOfClass(objc::ClassOf<ui::Responder>());
    ui::Responder step = inChain ? objc::As<ui::Responder>(sender) : FirstResponder();
    while (step && !step.respondsToSelector(action)) {
        step = step.nextResponder();
    }
    return step;
}

bool SendActionTo(ui::Application, objc::SEL action, ns::Object target, ns::Object sender, ui::Event event) {
    const ns::Object receiver = target ? target : TargetInChain(action, sender);
    if (!receiver || action == nullptr) {
        return false;
    }
    receiver.performSelector(action, sender, event); // a method with fewer parameters ignores the rest
    return true;
}

} // namespace

void DefineApplication() {
    DefineSceneSet();
    auto application = Class("UIApplication", "UIResponder");
    application.ClassMethod<"sharedApplication">(
        [](ui::Application) -> ui::Application { return Lasting<Shared>().application; });
    application.Method<"connectedScenes">([](ui::Application) {
        const auto set = ns::New<SceneSet>();
        StateOf<OrderedSetState>(set).objects = MakeArray(ConnectedScenes());
        return set;
    });
    application.Method<"windows">([](ui::Application) { return MakeArray(WindowsOf(nullptr)); });
    application.Method<"keyWindow">([](ui::Application) { return ApplicationKeyWindow(); });
    application.Method<"applicationState", &ApplicationState>();
    application.Method<"sendEvent:">([](ui::Application, ui::Event event) {
        for (const ui::Window window : WindowsTouchedBy(event)) {
            objc::Send<"sendEvent:", void>(window, event);
        }
    });
    application.Method<"sendAction:to:from:forEvent:", &SendActionTo>();
}

ui::View HitTestScreen(cg::Point point) {
    return HitTestWindows(point, nullptr);
}

} // namespace sim
