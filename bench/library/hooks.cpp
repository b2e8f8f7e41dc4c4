// What a hook that wraps a method and changes nothing costs the app.

#include "adapters/method_hook.hpp"
#include "measure.hpp"
#include "objc/class_builder.hpp"

namespace bench {
namespace {

/// Classes of an app: one that defines a method, and one that inherits it; each once as it is and once to be hooked.
struct Plain : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "BenchPlain";
};
struct PlainHeir : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "BenchPlainHeir";
};
struct Hooked : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "BenchHooked";
};
struct HookedHeir : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "BenchHookedHeir";
};

/// A method that does next to nothing: whatever one does more would hide the hook.
void Comment(objc::Object, objc::SEL, ns::Object) {}

void MakeFamily(const char *name, const char *heir) {
    const objc::MethodEntry methods[] = {objc::MethodNamed<"comment:", &Comment>()};
    const objc::Class cls = objc::AllocateClass(name, "NSObject");
    objc::AddMethods(cls, methods);
    objc_registerClassPair(cls);
    objc_registerClassPair(objc::AllocateClass(heir, name));
}

template <objc::Handle T> void Call(const T &object) {
    constexpr int kCalls = 1000;
    for (int i = 0; i < kCalls; ++i) {
        objc::Send<"comment:", void>(object, ns::Object{});
    }
}

template <objc::Handle HookedClass, objc::Handle PlainClass> void Measure(const char *name) {
    constexpr corvel::MethodHook kHooks[] = {corvel::PassThrough<HookedClass, "comment:">()};
    corvel::InstallMethodHooks(kHooks);
    const auto hooked = ns::New<HookedClass>();
    const auto plain = ns::New<PlainClass>();
    CountPair(name, [&] { Call(hooked.get()); }, [&] { Call(plain.get()); });
}

} // namespace
} // namespace bench

CORVEL_BENCH BenchHooks() {
    using namespace bench;
    MakeFamily(Plain::kClassName, PlainHeir::kClassName);
    MakeFamily(Hooked::kClassName, HookedHeir::kClassName);
    Measure<HookedHeir, PlainHeir>("hook-inherited"); // first: an own hook further up would be inherited too
    Measure<Hooked, Plain>("hook-own");
}
