// A configuration is imported from what was copied, in the app and through the injected library, and everything is laid
// out afterwards: the matrix that stands open, both panels anew, the buttons.

#include "apple/foundation/number.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "apple/uikit/pasteboard.hpp"
#include "driver/power.hpp"
#include "driver/runner.hpp"
#include "hosts/invocation.hpp"
#include "objc/class_builder.hpp"
#include "platform.hpp"
#include "runtime/user_defaults.hpp"

#include <cstdio>

namespace {

using sim::driver::Session;

Session &Phone() {
    static Session &session = *new Session;
    return session;
}

void Do(const char *lines) {
    try {
        for (const sim::script::Line &line : sim::script::Lex(lines, "import")) {
            sim::driver::Play(Phone(), line);
        }
    } catch (const sim::hosts::ReachedHost &error) {
        std::fprintf(stderr, "exception reached the host: %s\n", error.what());
        std::abort();
    } catch (const sim::script::ScriptError &error) {
        std::fprintf(stderr, "%s\n", error.what());
        std::abort();
    }
}

long PressBegan(ns::Object, objc::SEL) {
    return 1; // UIGestureRecognizerStateBegan
}

/// Stands for the recogniser of the long press that opens the settings: an import may have moved the button off any
/// finger's reach.
ns::Object Press() {
    static const ns::Object press = [] {
        const objc::Class cls = objc::AllocateClass("FuzzPress", "NSObject");
        objc_registerClassPair(cls);
        const objc::MethodEntry methods[] = {objc::MethodNamed<"state", &PressBegan>()};
        objc::AddMethods(cls, methods);
        return objc::Send<"new", ns::Object>(ns::Object{objc::AsObject(cls)});
    }();
    return press;
}

void OpenSettings() {
    sim::driver::AsHost(
        [] { objc::Send<"dm_flp:", void>(ns::Object{objc::AsObject(objc_getClass("NSObject"))}, Press()); });
    Do("wait 0.5");
}

void ForgetEverything() {
    const sim::AutoreleasePool pool;
    const auto store = ns::UserDefaults::standardUserDefaults();
    if (const ns::Dictionary stored = sim::StoredPreferences()) {
        for (const ns::String key : ns::ArrayOf<ns::String>(stored.allKeys())) {
            store.removeObjectForKey(key);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    Session &session = Phone();
    session.options.host = "douyin";
    session.options.library = FUZZED_LIBRARY;
    session.options.state = fuzz::MakeStateDirectory();
    sim::driver::SwitchOn(session);
    static const sim::AutoreleasePool &pool = *new sim::AutoreleasePool; // never destroyed, like the phone
    static_cast<void>(pool);
    Do("wait 4\nhost enter \"1\"\ncall action dm_ftap\nwait 1");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    sim::driver::AsHost([&] { ui::Pasteboard::generalPasteboard().setString(fuzz::CopiedText(bytes, size)); });
    // The open matrix; the panel with its folded sections, and closed again; a matrix that opens.
    Do("call action dm_imp\nwait 0.1");
    OpenSettings();
    Do("call action dm_cm\nwait 0.5\ncall action dm_ftap\nwait 0.5\ncall action dm_ftap\nwait 3");
    ForgetEverything();
    return 0;
}
