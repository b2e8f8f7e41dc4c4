// The host, its scenes and windows, the library's exported functions, and the next launch.

#include "apple/foundation/user_defaults.hpp"
#include "driver/commands/commands.hpp"
#include "driver/queries/queries.hpp"
#include "script/values.hpp"
#include "uikit/application.hpp"
#include "uikit/scene_state.hpp"

#include <map>

namespace sim::driver {
namespace {

using script::Bare;
using script::Fact;
using script::WordReader;

long ReadSceneState(WordReader &words) {
    static const std::map<std::string, long> states{
        {"unattached", -1}, {"active", 0}, {"inactive", 1}, {"background", 2}};
    const std::string name = words.Name("active, inactive, background or unattached");
    const auto found = states.find(name);
    if (found == states.end()) {
        words.Fail("expected active, inactive, background or unattached, not " + name);
    }
    return found->second;
}

ui::WindowScene ReadScene(WordReader &words) {
    const std::vector<ui::WindowScene> scenes = ConnectedScenes();
    const long number = words.Integer("the scene's number");
    if (number < 1 || number > std::ssize(scenes)) {
        words.Fail("there is no scene " + std::to_string(number));
    }
    return scenes[static_cast<std::size_t>(number - 1)];
}

/// The name of an app to simulate.
std::string ReadHost(WordReader &words) {
    const std::string &name = words.Name("a host");
    try {
        CheckHost(name);
    } catch (const UsageError &error) {
        words.Fail(error.what());
    }
    return name;
}

/// Sends a handler that takes no sender as a control wired to it would.
void SendAction(WordReader &words) {
    const std::string name = words.Name("a handler of the library");
    const ns::Object target{objc::AsObject(objc::ClassOf<ns::Object>())};
    const objc::SEL action = sel_registerName(name.c_str());
    if (!name.starts_with("dm_") || name.ends_with(':') || !target.respondsToSelector(action)) {
        words.Fail("the library has no handler " + name + " without a sender");
    }
    words.End();
    target.performSelector(action);
}

} // namespace

void DoHost(Session &session, WordReader &words) {
    if (!session.launched) {
        hosts::Host::Shape(words);
        return;
    }
    WordReader whole = words;
    Fact fact = session.host->Event(words);
    if (!fact.empty()) {
        const std::span<const script::Word> event = whole.Rest();
        fact.insert(fact.begin(), Bare("host " + script::Render(event) + ":"));
        Say(fact);
    }
}

void DoCall(Session &session, WordReader &words) {
    if (words.Take("action")) {
        SendAction(words);
        return;
    }
    const std::string name = WordReader(words).Name("an exported function");
    for (Fact fact : AskCall(session, words)) {
        fact.insert(fact.begin(), Bare("call " + name + ":"));
        Say(fact);
    }
}

void DoScene(Session &session, WordReader &words) {
    if (!session.launched) {
        session.firstSceneState = words.Take("none") ? kNoScene : ReadSceneState(words);
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
    const auto window = objc::Ref<ui::Window>::Adopt(ns::Alloc<ui::Window>().initWithWindowScene(scene));
    kept.push_back(window);
    window->setFrame({{0, 0}, ScreenSize()});
    window->setWindowLevel(level);
    window->setRootViewController(ns::New<ui::ViewController>());
    if (key) {
        window->makeKeyAndVisible();
    } else {
        window->setHidden(false);
    }
}

void DoRelaunch(Session &session, WordReader &words) {
    Options options = session.options;
    while (!words.AtEnd()) {
        if (words.Take("--host")) {
            options.host = ReadHost(words);
            options.bundle.reset();
        } else {
            words.Expect("--bundle");
            options.bundle = words.Name("a bundle identifier");
        }
    }
    ns::UserDefaults::standardUserDefaults().synchronize();
    Say({Bare("relaunch")});
    Relaunch(options, {session.nextLine, session.expectations, session.failures, session.ownsState});
    words.Fail("cannot start again");
}

} // namespace sim::driver
