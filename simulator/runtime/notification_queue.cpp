#include "runtime/notification_queue.hpp"

#include "apple/foundation/notifications.hpp"
#include "apple/foundation/thread.hpp"
#include "runtime/background_thread.hpp"
#include "runtime/block_function.hpp"
#include "runtime/clock.hpp"
#include "runtime/lasting.hpp"
#include "runtime/native_class.hpp"
#include "runtime/replace_method.hpp"
#include "runtime/variants.hpp"

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <unordered_map>

namespace sim {
namespace {

struct ObserverState {
    std::function<void(ns::Notification)> block;
    bool onMainQueue = false;
};

struct Observer : objc::Object {
    using Object::Object;
    static constexpr const char *kClassName = "CorvelSimBlockObserver";
};

/// What an observer is registered for; the centre keeps no reference, so it is held here until it is removed.
struct Registration {
    objc::Ref<Observer> observer;
    objc::Ref<ns::String> name;
    objc::Object object;
};

struct Registrations {
    std::mutex mutex;
    std::unordered_map<objc::id, Registration> byObserver;
};

void Observe(const ObserverState &state, ns::Notification notification) {
    const auto block = state.block; // the block may remove its own observer
    if (!state.onMainQueue || ns::Thread::isMainThread()) {
        block(notification);
    } else if (background::IsCurrent() && !Otherwise(Variant::kObserverQueue)) {
        background::WaitForMain([&] { block(notification); });
    } else {
        clock::Schedule(0, [block, held = objc::Ref<ns::Notification>(notification)] { block(held); });
    }
}

ns::Object AddObserver(ns::NotificationCenter self, objc::SEL, ns::String name, ns::Object object,
                       ns::OperationQueue queue, objc::Block<void(ns::Notification)> block) {
    if (queue && queue != ns::OperationQueue::mainQueue()) {
        std::fprintf(stderr, "observing a notification on an operation queue other than the main one\n");
        std::abort();
    }
    const auto observer = ns::New<Observer>();
    auto &state = StateOf<ObserverState>(observer.get());
    state.block = FunctionOf(block);
    state.onMainQueue = static_cast<bool>(queue);
    {
        auto &registrations = Lasting<Registrations>();
        const std::lock_guard lock(registrations.mutex);
        registrations.byObserver[observer.get().pointer] = {observer, name, object};
    }
    objc::Send<"addObserver:selector:name:object:", void>(self, ns::Object(observer.get()),
                                                          objc::Selector<"corvelSimObserve:">(), name, object);
    return observer.get();
}

Original<void, ns::NotificationCenter, ns::Object, ns::String, ns::Object> originalRemove = nullptr;

/// What both ways to remove an observer end in: nil for name or object stands for any.
void RemoveObserver(ns::NotificationCenter self, objc::SEL selector, ns::Object observer, ns::String name,
                    ns::Object object) {
    originalRemove(self, selector, observer, name, object);
    Registration gone; // released after the lock
    auto &registrations = Lasting<Registrations>();
    const std::lock_guard lock(registrations.mutex);
    const auto found = registrations.byObserver.find(observer.pointer);
    if (found == registrations.byObserver.end()) {
        return;
    }
    const Registration &registration = found->second;
    const bool sameName = !name || (registration.name && name.isEqualToString(registration.name.get()));
    if (sameName && (!object || object == registration.object)) {
        gone = std::move(found->second);
        registrations.byObserver.erase(found);
    }
}

} // namespace

void InstallNotificationObservers() {
    auto observer = Class<ObserverState>(Observer::kClassName, "NSObject");
    observer.Method<"corvelSimObserve:", &Observe>();
    ReplaceMethod("NSNotificationCenter", objc::Selector<"addObserverForName:object:queue:usingBlock:">(),
                  &AddObserver);
    originalRemove =
        ReplaceMethod("NSNotificationCenter", objc::Selector<"removeObserver:name:object:">(), &RemoveObserver);
}

} // namespace sim
