// What the library holds of an app once its button stands and nobody touches it.
//
// usage: idle-bench HOST LIBRARY

#include "heap.hpp"

#include "apple/foundation/notifications.hpp"
#include "apple/uikit/button.hpp"
#include "apple/uikit/gesture_recognizer.hpp"
#include "apple/uikit/window.hpp"
#include "driver/power.hpp"
#include "driver/runner.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/clock.hpp"
#include "runtime/replace_method.hpp"

#include <cstdio>
#include <dlfcn.h>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace bench {
namespace {

using namespace sim;

// Observers that the library registered and has not removed.

std::string library;
int observers = 0;
Original<ns::Object, ns::NotificationCenter, ns::String, ns::Object, ns::OperationQueue,
         objc::Block<void(ns::Notification)>>
    originalAdd = nullptr;

bool IsLibrarys(const void *code) {
    Dl_info file{};
    std::error_code none;
    return dladdr(code, &file) != 0 && std::filesystem::equivalent(file.dli_fname, library, none);
}

ns::Object Add(ns::NotificationCenter self, objc::SEL selector, ns::String name, ns::Object object,
               ns::OperationQueue queue, objc::Block<void(ns::Notification)> block) {
    if (IsLibrarys(__builtin_return_address(0))) {
        ++observers;
    }
    return originalAdd(self, selector, name, object, queue, block);
}

// What the desk's platform makes once for all, fonts and the like, an app on a phone has long since: the app makes what
// the overlay is going to be made of, and takes it down again.

void MakeAndDrop(driver::Session &session) {
    const auto target = objc::AsObject(objc_getClass("NSObject"));
    objc::Ref<ui::Window> window;
    driver::AsHost([&] {
        const auto scene = ui::Application::sharedApplication().connectedScenes().allObjects().firstObject();
        window = objc::Ref<ui::Window>::Adopt(
            ns::Alloc<ui::Window>().initWithWindowScene(objc::As<ui::WindowScene>(scene)));
        window->setFrame({{0, 0}, {390, 844}});
        window->setRootViewController(ns::New<ui::ViewController>());
        window->rootViewController().view().setBackgroundColor(ui::Color::clearColor());
        window->makeKeyAndVisible();
        const auto button = ui::Button::buttonWithType(UIButtonTypeCustom);
        button.setFrame({{0, 0}, {50, 50}});
        button.setTitle(u"弹"_ns, UIControlStateNormal);
        button.setTitleColor(ui::Color::whiteColor(), UIControlStateNormal);
        button.titleLabel().setFont(ui::Font::boldSystemFontOfSize(18));
        button.layer().setShadowColor(ui::Color::blackColor().CGColor());
        button.addTarget(ns::Object{target}, objc::Selector<"self">(), UIControlEventTouchUpInside);
        const auto press = ns::Alloc<ui::LongPressGestureRecognizer>().initWithTarget(ns::Object{target},
                                                                                     objc::Selector<"self">());
        button.addGestureRecognizer(objc::Ref<ui::GestureRecognizer>::Adopt(press));
        const auto pan =
            ns::Alloc<ui::PanGestureRecognizer>().initWithTarget(ns::Object{target}, objc::Selector<"self">());
        button.addGestureRecognizer(objc::Ref<ui::GestureRecognizer>::Adopt(pan));
        window->addSubview(button);
    });
    driver::Play(session, script::Lex("wait 1", "idle").front());
    driver::AsHost([&] {
        window->setHidden(true);
        window = nullptr;
    });
    driver::Play(session, script::Lex("wait 1", "idle").front());
}

} // namespace
} // namespace bench

std::ptrdiff_t beforeInjection = 0;
std::ptrdiff_t afterInjection = 0;

namespace sim::driver {

std::string Library::Inject(const std::string &path) {
    beforeInjection = bench::HeapBytes();
    handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    afterInjection = bench::HeapBytes();
    return handle_ != nullptr ? "" : dlerror();
}

void *Library::Function(const std::string &name) const {
    return dlsym(handle_, name.c_str());
}

} // namespace sim::driver

int main(int count, char **words) {
    using namespace sim;
    if (count != 3) {
        std::fprintf(stderr, "usage: idle-bench HOST LIBRARY\n");
        return 2;
    }
    driver::Session session;
    session.options.host = words[1];
    session.options.library = bench::library = words[2];
    driver::SwitchOn(session);
    const AutoreleasePool pool;
    bench::originalAdd = ReplaceMethod(
        "NSNotificationCenter", objc::Selector<"addObserverForName:object:queue:usingBlock:">(), &bench::Add);

    const auto play = [&](const char *line) { driver::Play(session, script::Lex(line, "idle").front()); };
    play("wait 0.5");
    bench::MakeAndDrop(session);
    const std::ptrdiff_t beforeBuild = bench::HeapBytes();
    play("wait 5.5");
    const std::ptrdiff_t idle = bench::HeapBytes();
    // A year: whatever waits for a time of its own has its turn.
    const std::uint64_t before = clock::WorkDone();
    play("wait 31536000");
    std::printf("work\t%lu\nobservers\t%d\nload\t%td\nbuild\t%td\n", clock::WorkDone() - before, bench::observers,
                afterInjection - beforeInjection, idle - beforeBuild);
    std::filesystem::remove_all(session.options.state);
    std::fflush(stdout);
    _exit(0);
}
