// The scenes and windows of the app.

#include "driver/subjects/subjects.hpp"
#include "driver/view_properties.hpp"
#include "uikit/application.hpp"
#include "uikit/scene_state.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

/// By UISceneActivationState, from unattached on.
constexpr const char *kStates[] = {"unattached", "active", "inactive", "background"};

UISceneActivationState ReadSceneState(WordReader &words) {
    const std::string name = words.Name("active, inactive, background or unattached");
    const auto *const found = std::ranges::find(kStates, name);
    if (found == std::end(kStates)) {
        words.Fail("expected active, inactive, background or unattached, not " + name);
    }
    return static_cast<UISceneActivationState>(UISceneActivationStateUnattached + (found - std::begin(kStates)));
}

ui::WindowScene ReadScene(WordReader &words) {
    const std::vector<ui::WindowScene> scenes = ConnectedScenes();
    const long number = words.Integer("the scene's number");
    if (number < 1 || number > std::ssize(scenes)) {
        words.Fail("there is no scene " + std::to_string(number));
    }
    return scenes[static_cast<std::size_t>(number - 1)];
}

/// scene add STATE | N STATE | N disconnect | N keyless; before the launch: scene STATE|none
void DoScene(Session &session, WordReader &words) {
    if (!session.launched) {
        session.firstSceneState = words.Take("none") ? std::nullopt : std::optional(ReadSceneState(words));
        return;
    }
    if (words.Take("add")) {
        MakeWindowScene(ReadSceneState(words));
        return;
    }
    const ui::WindowScene scene = ReadScene(words);
    if (words.Take("disconnect")) {
        DisconnectScene(scene);
    } else if (words.Take("keyless")) {
        SetKeyWindow(scene, nullptr);
    } else {
        SetActivationState(scene, ReadSceneState(words));
    }
}

/// window [scene N] [level L] [key]: one more window of the app's own, above those that are there.
void DoWindow(Session &, WordReader &words) {
    const std::vector<ui::WindowScene> scenes = ConnectedScenes();
    if (scenes.empty()) {
        words.Fail("there is no scene for a window");
    }
    const ui::WindowScene scene = words.Take("scene") ? ReadScene(words) : scenes.front();
    const double level = words.Take("level") ? words.Number("the level") : 0;
    const bool key = words.Take("key");
    words.End();
    // The app keeps its windows as long as it lives.
    static std::vector<objc::Ref<ui::Window>> kept;
    const ui::Window window =
        kept.emplace_back(objc::Ref<ui::Window>::Adopt(ns::Alloc<ui::Window>().initWithWindowScene(scene)));
    window.setFrame({{0, 0}, ScreenSize()});
    window.setWindowLevel(level);
    window.setRootViewController(ns::New<ui::ViewController>());
    if (key) {
        window.makeKeyAndVisible();
    } else {
        window.setHidden(false);
    }
}

Answer AskWindows(Session &, WordReader &) {
    Answer answer;
    for (const ui::Window window : WindowsOf(nullptr)) {
        answer.push_back({DescribeClass(window), Bare("level"), Bare(WindowStateOf(window).level),
                          Bare(IsOnScreen(window) ? "visible" : "hidden")});
        if (window.isKeyWindow()) {
            answer.back().push_back(Bare("key"));
        }
    }
    return answer;
}

Answer AskScenes(Session &, WordReader &) {
    Answer answer;
    for (const ui::WindowScene scene : ConnectedScenes()) {
        const UISceneActivationState state = SceneStateOf(scene).activationState;
        answer.push_back({Bare(kStates[state - UISceneActivationStateUnattached]), Bare("key")});
        Append(answer.back(), DescribeView(KeyWindowOf(scene)));
    }
    return answer;
}

constexpr Command kCommands[] = {{"scene", &DoScene, When::kBeforeLaunchToo}, {"window", &DoWindow}};
constexpr Query kQueries[] = {{"windows", &AskWindows}, {"scenes", &AskScenes}};

} // namespace

constinit const Subject kScenes{kCommands, kQueries};

} // namespace sim::driver
