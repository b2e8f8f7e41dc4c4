// UIScene and UIWindowScene.

#include "runtime/lasting.hpp"
#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/array.hpp"
#include "uikit/classes.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/screen.hpp"

#include <algorithm>

namespace sim {
namespace {

struct Scenes {
    std::vector<objc::Ref<ui::WindowScene>> connected;
};

std::vector<objc::Ref<ui::WindowScene>> &Connected() {
    return Lasting<Scenes>().connected;
}

/// The key window of the application has gone with its scene: that of the scene whose window lies top-most is next, or
/// that window itself where its scene has none.
void KeyStatusGoesToTheRest() {
    for (const ui::Window window : WindowsFrontToBack()) {
        const ui::WindowScene scene = WindowStateOf(window).scene;
        if (objc::Send<"canBecomeKeyWindow", bool>(window)) {
            const ui::Window key = KeyWindowOf(scene);
            MakeKey(key ? key : window);
            return;
        }
    }
}

} // namespace

void DefineScene() {
    auto scene = Class<SceneState>("UIScene", "UIResponder");
    scene.ReadOnly<"activationState", &SceneState::activationState>();
    scene.Method<"nextResponder">([](ui::Scene) { return ui::Application::sharedApplication(); });

    auto windowScene = Class("UIWindowScene", "UIScene");
    windowScene.Method<"coordinateSpace">([](ui::WindowScene) { return objc::As<ui::CoordinateSpace>(MainScreen()); });
    windowScene.Method<"interfaceOrientation">([](ui::WindowScene) { return InterfaceOrientation(); });
    windowScene.Method<"screen">([](ui::WindowScene) { return MainScreen(); });
    windowScene.Method<"keyWindow", &KeyWindowOf>();
    windowScene.Method<"windows">([](ui::WindowScene self) { return MakeArray(WindowsOf(self)); });
}

SceneState &SceneStateOf(ui::Scene scene) {
    return StateOf<SceneState>(scene);
}

ui::WindowScene MakeWindowScene(UISceneActivationState activationState) {
    Connected().push_back(ns::New<ui::WindowScene>());
    SceneStateOf(Connected().back().get()).activationState = activationState;
    return Connected().back();
}

void SetActivationState(ui::Scene scene, UISceneActivationState activationState) {
    SceneStateOf(scene).activationState = activationState;
}

void DisconnectScene(ui::Scene scene) {
    const auto place = std::ranges::find_if(Connected(), [scene](const auto &other) { return other.get() == scene; });
    if (place == Connected().end()) {
        return;
    }
    const objc::Ref<ui::WindowScene> keep = *place;
    Connected().erase(place);
    SceneStateOf(scene).activationState = UISceneActivationStateUnattached;
    const bool heldKey = ApplicationKeyWindow() == KeyWindowOf(keep);
    SetKeyWindow(keep, nullptr);
    for (const ui::Window window : WindowsOf(keep)) {
        objc::Send<"endEditing:", bool>(window, true);
        WindowStateOf(window).scene = nullptr;
        WindowStateOf(window).lostItsScene = true;
    }
    if (heldKey) {
        KeyStatusGoesToTheRest();
    }
}

std::vector<ui::WindowScene> ConnectedScenes() {
    return {Connected().begin(), Connected().end()};
}

ui::Window KeyWindowOf(ui::WindowScene scene) {
    return scene ? SceneStateOf(scene).keyWindow : ui::Window{};
}

} // namespace sim
