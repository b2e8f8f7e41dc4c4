#include "uikit/scene.hpp"

#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/array.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/screen.hpp"

#include <algorithm>

namespace sim {
namespace {

std::vector<objc::Ref<ui::WindowScene>> &Connected() {
    static auto &scenes = *new std::vector<objc::Ref<ui::WindowScene>>;
    return scenes;
}

long ActivationState(ui::Scene self, objc::SEL) {
    return SceneStateOf(self).activationState;
}

ui::Responder SceneNextResponder(ui::Scene, objc::SEL) {
    return ui::Application::sharedApplication();
}

ui::CoordinateSpace CoordinateSpace(ui::WindowScene, objc::SEL) {
    return ui::CoordinateSpace{MainScreen().pointer};
}

ui::Screen Screen(ui::WindowScene, objc::SEL) {
    return MainScreen();
}

ui::Window KeyWindow(ui::WindowScene self, objc::SEL) {
    return KeyWindowOf(self);
}

ns::Array Windows(ui::WindowScene self, objc::SEL) {
    return ArrayOf(WindowsOf(self));
}

} // namespace

SceneState &SceneStateOf(ui::Scene scene) {
    return StateOf<SceneState>(scene);
}

ui::WindowScene MakeWindowScene(long activationState) {
    Connected().push_back(ns::New<ui::WindowScene>());
    SceneStateOf(Connected().back().get()).activationState = activationState;
    return Connected().back();
}

void SetActivationState(ui::Scene scene, long activationState) {
    SceneStateOf(scene).activationState = activationState;
}

void DisconnectScene(ui::Scene scene) {
    const auto place = std::ranges::find_if(Connected(), [scene](const auto &other) { return other.get() == scene; });
    if (place == Connected().end()) {
        return;
    }
    const objc::Ref<ui::WindowScene> keep = *place;
    Connected().erase(place);
    SceneStateOf(scene).activationState = -1;
    SetKeyWindow(keep, nullptr);
    for (const ui::Window window : AllWindows()) {
        if (WindowStateOf(window).scene == scene) {
            WindowStateOf(window).scene = nullptr;
        }
    }
}

std::vector<ui::WindowScene> ConnectedScenes() {
    return {Connected().begin(), Connected().end()};
}

ui::Window KeyWindowOf(ui::WindowScene scene) {
    return scene ? SceneStateOf(scene).keyWindow : ui::Window{};
}

void RegisterScene() {
    const objc::MethodEntry sceneMethods[] = {
        objc::MethodNamed<"activationState", &ActivationState>(),
        objc::MethodNamed<"nextResponder", &SceneNextResponder>(),
    };
    RegisterClassWithState<SceneState>("UIScene", "UIResponder", sceneMethods);
    const objc::MethodEntry windowSceneMethods[] = {
        objc::MethodNamed<"coordinateSpace", &CoordinateSpace>(),
        objc::MethodNamed<"screen", &Screen>(),
        objc::MethodNamed<"keyWindow", &KeyWindow>(),
        objc::MethodNamed<"windows", &Windows>(),
    };
    RegisterClass("UIWindowScene", "UIScene", windowSceneMethods);
}

} // namespace sim
