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

void Play(driver::Session &session, const std::string &line) {
    driver::Play(session, script::Lex(line, "idle").front());
}

/// Lets seconds pass, to the end of what is due then.
void Wait(driver::Session &session, double seconds) {
    Play(session, "wait " + std::to_string(seconds));
}

// What the desk's platform makes once for all, fonts and the like, an app on a phone has long since: the app makes what
// the overlay is going to be made of, and takes it down again.

void MakeAndDrop(driver::Session &session) {
    const ns::Object target{objc::AsObject(objc_getClass("NSObject"))};
    objc::Ref<ui::Window> window;
    driver::AsHost([&] {
        const auto scene = ui::Application::sharedApplication().connectedScenes().allObjects().firstObject();
        window =
            objc::Ref<ui::Window>::Adopt(ns::Alloc<ui::Window>().initWithWindowScene(objc::As<ui::WindowScene>(scene)));
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
        button.addTarget(target, objc::Selector<"self">(), UIControlEventTouchUpInside);
        const auto press = ns::Alloc<ui::LongPressGestureRecognizer>().initWithTarget(target, objc::Selector<"self">());
        button.addGestureRecognizer(objc::Ref<ui::GestureRecognizer>::Adopt(press));
        const auto pan = ns::Alloc<ui::PanGestureRecognizer>().initWithTarget(target, objc::Selector<"self">());
        button.addGestureRecognizer(objc::Ref<ui::GestureRecognizer>::Adopt(pan));
        window->addSubview(button);
    });
    Wait(session, 1);
    driver::AsHost([&] {
        window->setHidden(true);
        window = nullptr;
    });
    Wait(session, 1);
}

std::ptrdiff_t heldByLoad = 0; // bytes

} // namespace
} // namespace bench

namespace sim::driver {

std::string Library::Inject(const std::string &path) {
    const std::ptrdiff_t before = bench::HeapBytes();
    handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    bench::heldByLoad = bench::HeapBytes() - before;
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
    session.options.library = bench::library = std::filesystem::absolute(words[2]);
    driver::SwitchOn(session);
    const AutoreleasePool pool;
    bench::originalAdd = ReplaceMethod("NSNotificationCenter",
                                       objc::Selector<"addObserverForName:object:queue:usingBlock:">(), &bench::Add);

    bench::Wait(session, 0.5);
    bench::MakeAndDrop(session);
    const std::ptrdiff_t beforeBuild = bench::HeapBytes();
    bench::Wait(session, 5.5); // the overlay is built in this time, three seconds after the load
    const std::ptrdiff_t heldByBuild = bench::HeapBytes() - beforeBuild;
    bench::Play(session, "expect objects DanmuWindow is 1");
    // A year: whatever waits for a time of its own has its turn.
    const std::uint64_t before = clock::WorkDone();
    bench::Wait(session, 31'536'000);
    std::printf("timers\t%lu\nobservers\t%d\nbytes\t%td\n", clock::WorkDone() - before, bench::observers,
                bench::heldByLoad + heldByBuild);
    std::filesystem::remove_all(session.options.state);
    std::fflush(stdout);
    _exit(session.progress.failures);
}
