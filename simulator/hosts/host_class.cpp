#include "hosts/host_class.hpp"

#include "runtime/foreign_leaks.hpp"
#include "script/values.hpp"

namespace sim::hosts {
namespace {

struct Exception : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSException";

    static Exception exceptionWithName(ns::String name, ns::String reason) {
        return objc::SendClass<Exception, "exceptionWithName:reason:userInfo:", Exception>(name, reason, ns::Object{});
    }
    void raise() const {
        objc::Send<"raise", void>(*this);
    }
};

/// What becomes of the object of a method that fails: nobody else can give up a fresh one, or save one half taken down.
void GiveUp(objc::id self, objc::SEL selector) {
    const std::string_view name = sel_getName(selector);
    if (name.starts_with("init")) {
        objc::Release(self);
    } else if (name == "dealloc") {
        MayLeak(self);
    }
}

} // namespace

void Raise(const std::string &reason) {
    Exception::exceptionWithName("HostException"_ns, script::MakeString(reason)).raise();
    std::abort(); // raise does not return
}

void Arrive(objc::id self, objc::SEL selector, std::vector<script::Fact> arguments) {
    TheRecord().Add(Call{TheObjects().NameOf(ns::Object{self}), sel_getName(selector), std::move(arguments)});
    if (const std::string *reason = ThePlan().ReasonToThrow(objc::object_getClass(self), sel_getName(selector))) {
        GiveUp(self, selector);
        Raise(*reason);
    }
}

bool Refuses(objc::id self, objc::SEL selector) {
    if (!ThePlan().Refuses(objc::object_getClass(self), sel_getName(selector))) {
        return false;
    }
    GiveUp(self, selector);
    return true;
}

namespace detail {

std::vector<objc::MethodEntry> Planned(const std::string &cls, std::span<const HostMethod> methods, bool inherited) {
    std::vector<objc::MethodEntry> entries;
    for (const HostMethod &method : methods) {
        const Plan::Method name{cls, sel_getName(method.entry.selector())};
        const bool exists = !ThePlan().LacksMethod(name) && (!method.optional || ThePlan().HasMethod(name));
        if (exists && ThePlan().Inherits(name) == inherited) {
            entries.push_back(method.entry);
        }
    }
    return entries;
}

} // namespace detail

void RegisterFamily(const Family &family, std::span<const HostMethod> methods,
                    std::span<const HostMethod> classMethods) {
    const auto planned = [&](std::span<const HostMethod> those, bool inherited) {
        return detail::Planned(family.name, those, inherited);
    };
    RegisterClass(family.base, family.root, planned(methods, true), planned(classMethods, true));
    if (!ThePlan().LacksClass(family.name)) {
        RegisterClass(family.name, family.base, planned(methods, false), planned(classMethods, false));
    }
    RegisterClass(family.sibling, family.base, {});
}

objc::Ref<ns::Object> MakeObject(const char *className) {
    const objc::Class cls = objc_getClass(className);
    if (cls == nullptr) {
        return nullptr;
    }
    const auto fresh = objc::Send<"alloc", ns::Object>(ns::Object{objc::AsObject(cls)});
    return objc::Ref<ns::Object>::Adopt(objc::Send<"init", ns::Object>(fresh));
}

} // namespace sim::hosts
