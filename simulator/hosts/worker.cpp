#include "hosts/worker.hpp"

#include "apple/foundation/notifications.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "hosts/invocation.hpp"
#include "hosts/objects.hpp"
#include "objc/guard.hpp"
#include "runtime/background_thread.hpp"
#include "runtime/clock.hpp"
#include "script/values.hpp"

#include <exception>
#include <functional>
#include <memory>

namespace sim::hosts {
namespace {

using Work = std::function<Fact()>;

/// Runs work that has no result; an exception out of it has reached the top of its thread, which ends an app.
template <class Body> Fact Unguarded(const Body &body) {
    std::string reason;
    if (!objc::Guard(body, [&reason](objc::Object raised) { reason = script::TextOf(objc::As<ns::String>(raised)); })) {
        throw ReachedHost(reason);
    }
    return {};
}

Work ReadNotify(WordReader &words) {
    const objc::Ref<ns::String> name = script::MakeString(words.Next("the notification's name").text);
    return [name] {
        return Unguarded([&] { ns::NotificationCenter::defaultCenter().postNotificationName(name, nullptr); });
    };
}

Work ReadSet(WordReader &words) {
    const objc::Ref<ns::String> key = script::MakeString(words.Next("a key").text);
    const objc::Ref<ns::Object> value = script::ReadValue(words);
    return [key, value] { return Unguarded([&] { ns::UserDefaults::standardUserDefaults().setObject(value, key); }); };
}

Work ReadUnset(WordReader &words) {
    const objc::Ref<ns::String> key = script::MakeString(words.Next("a key").text);
    return [key] { return Unguarded([&] { ns::UserDefaults::standardUserDefaults().removeObjectForKey(key); }); };
}

Work ReadCall(WordReader &words) {
    const objc::Ref<ns::Object> object = TheObjects().Read(words);
    const std::string selector = words.Name("a selector");
    auto invocation = std::make_shared<Invocation>(object, selector, words);
    return [invocation] { return Invoke(*invocation); };
}

struct Deed {
    const char *name;
    Work (*read)(WordReader &words);
};

constexpr Deed kDeeds[] = {{"notify", &ReadNotify}, {"set", &ReadSet}, {"unset", &ReadUnset}, {"call", &ReadCall}};

Work Read(WordReader &words) {
    for (const Deed &deed : kDeeds) {
        if (words.Take(deed.name)) {
            Work work = deed.read(words);
            words.End();
            return work;
        }
    }
    words.Fail("a worker can notify, set, unset or call");
}

struct Result {
    Fact said;
    std::exception_ptr failure;
};

} // namespace

Fact DoOnWorker(WordReader &words) {
    const auto result = std::make_shared<Result>(); // outlives this call where the thread sleeps
    background::Run([work = Read(words), result] {
        try {
            result->said = work();
        } catch (const std::exception &) {
            result->failure = std::current_exception();
        }
    });
    // What the thread waits for on the main queue.
    clock::Drain();
    if (result->failure) {
        std::rethrow_exception(result->failure);
    }
    return result->said;
}

} // namespace sim::hosts
