#include "hosts/host_class.hpp"

#include "runtime/foreign_leaks.hpp"
#include "script/values.hpp"

namespace sim::hosts {
namespace {

struct Exception : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSException";
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
    objc::Send<"raise", void>(objc::SendClass<Exception, "exceptionWithName:reason:userInfo:", Exception>(
        "HostException"_ns, script::MakeString(reason), ns::Object{}));
    std::abort(); // raise does not return
}

void Arrive(objc::id self, objc::SEL selector, const std::vector<Fact> &arguments) {
    RecordCall(ns::Object{self}, sel_getName(selector), arguments);
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

HostClass::HostClass(const char *root, const char *base, const char *name, const char *sibling)
    : name_(name), base_(RegisterClass(base, root, {})),
      own_(ThePlan().lackedClasses.contains(name) ? nullptr : RegisterClass(name, base, {})) {
    RegisterClass(sibling, base, {});
}

void HostClass::Add(const objc::MethodEntry &method, bool optional, bool ofClass) const {
    const Plan &plan = ThePlan();
    const Plan::Method name{name_, sel_getName(method.selector())};
    const objc::Class holder = plan.inheritedMethods.contains(name) ? base_ : own_;
    const bool exists = !plan.lackedMethods.contains(name) && (!optional || plan.extraMethods.contains(name));
    if (exists && holder != nullptr) {
        class_addMethod(ofClass ? objc::MetaclassOf(holder) : holder, method.selector(), method.implementation,
                        method.encoding);
    }
}

objc::Ref<ns::Object> MakeObject(const char *className) {
    const ns::Object cls{objc::AsObject(objc_getClass(className))};
    return objc::Ref<ns::Object>::Adopt(objc::Send<"new", ns::Object>(cls));
}

} // namespace sim::hosts
