// corvel-window: the phone on the desk, to touch.

#include "apple/foundation/user_defaults.hpp"
#include "driver/leak_check.hpp"
#include "driver/power.hpp"
#include "runtime/autorelease.hpp"
#include "script/vocabulary.hpp"
#include "window/desk.hpp"

#include <cstdio>
#include <exception>
#include <unistd.h>

namespace {

using namespace sim;

int Show(const window::WindowOptions &options) {
    const window::Texts &texts = window::TextsOfTheComputer();
    window::SdlWindow window;
    driver::Session session;
    session.options = options.phone;
    driver::SwitchOn(session);
    const AutoreleasePool pool;
    if (!options.phone.words.empty()) {
        script::TheVocabulary().Load(options.phone.words);
    }
    const int status = window::ShowDesk(window, session, options, texts);
    // An app that is closed has the time to store what it wrote.
    ns::UserDefaults::standardUserDefaults().synchronize();
    std::fflush(nullptr);
    return status;
}

} // namespace

int main(int count, char **words) {
    int status = 2;
    try {
        status = Show(window::ReadOptions(count, words));
    } catch (const std::exception &error) {
        std::fprintf(stderr, "corvel-window: %s\n", error.what());
    }
    std::fflush(nullptr);
    // The phone is switched off: nothing of the app or the library runs any more.
    _exit(status == 0 && driver::HasLeaked() ? driver::kLeakedStatus : status);
}
