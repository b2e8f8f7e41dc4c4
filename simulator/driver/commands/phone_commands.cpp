// What the phone keeps and does: time, preferences, notifications, pictures.

#include "apple/foundation/notifications.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "driver/commands/commands.hpp"
#include "runtime/clock.hpp"
#include "script/values.hpp"
#include "uikit/screenshot.hpp"

#include <filesystem>

namespace sim::driver {
namespace {

using script::Bare;
using script::WordReader;

ns::UserDefaults Defaults() {
    return ns::UserDefaults::standardUserDefaults();
}

} // namespace

void DoWait(Session &, WordReader &words) {
    const double seconds = words.Number("seconds");
    words.End();
    if (!(seconds >= 0 && seconds <= 1e9)) {
        words.Fail("time cannot move by that");
    }
    clock::Advance(seconds);
}

void DoSet(Session &, WordReader &words) {
    const ns::String key = script::MakeString(words.Next("a key").text);
    const ns::Object value = script::ReadValue(words);
    words.End();
    Defaults().setObject(value, key);
    Defaults().synchronize();
}

void DoUnset(Session &, WordReader &words) {
    const ns::String key = script::MakeString(words.Next("a key").text);
    words.End();
    Defaults().removeObjectForKey(key);
    Defaults().synchronize();
}

void DoNotify(Session &, WordReader &words) {
    const ns::String name = script::MakeString(words.Next("the notification's name").text);
    words.End();
    ns::NotificationCenter::defaultCenter().postNotificationName(name, nullptr);
}

void DoPicture(Session &session, WordReader &words) {
    const std::string name = words.Next("the picture's name").text;
    words.End();
    std::error_code ignored;
    std::filesystem::create_directories(session.options.pictures, ignored);
    const std::string path = (std::filesystem::path(session.options.pictures) / (name + ".png")).string();
    if (!WriteScreenshot(path)) {
        words.Fail("cannot write " + path);
    }
    Say({Bare("picture"), Bare(name)});
}

} // namespace sim::driver
