#include "hosts/host_class.hpp"

#include "apple/foundation/exception.hpp"
#include "hosts/chained_calls.hpp"
#include "hosts/inventory.hpp"
#include "hosts/keyed.hpp"
#include "hosts/shaped_method.hpp"
#include "runtime/foreign_leaks.hpp"
#include "script/values.hpp"

extern "C" {
/// The bytes of an object, instance variables of superclasses included.
std::size_t class_getInstanceSize(objc::Class cls);
}

namespace sim::hosts {
namespace {

/// What becomes of the object of a method that fails: nobody else can give up a fresh one, or save one half taken down.
void GiveUp(ns::Object self, std::string_view selector) {
    if (selector.starts_with("init")) {
        objc::Release(self.pointer);
    } else if (selector == "dealloc") {
        MayLeak(self.pointer);
    }
}

} // namespace

void Raise(const std::string &reason) {
    ns::Exception::exceptionWithName("HostException"_ns, script::MakeString(reason)).raise();
    std::abort(); // raise does not return
}

void Arrive(ns::Object self, const char *selector, const std::vector<Fact> &arguments) {
    RecordCall(self, selector, arguments);
    MakeChainedCalls(selector); // before a planned throw: a method may do half of its work and fail then
    if (const std::string *reason = ThePlan().MeetThrow(objc::object_getClass(self.pointer), selector)) {
        GiveUp(self, selector);
        Raise(*reason);
    }
}

bool Refuses(ns::Object self, const char *selector) {
    if (!ThePlan().Refuses(objc::object_getClass(self.pointer), selector)) {
        return false;
    }
    GiveUp(self, selector);
    return true;
}

namespace {

/// Whether the methods of a class find what they keep in their objects when those are of this class or below: it is the
/// root or below it, unless objects of the root keep nothing.
bool KeepsWhat(const char *root, objc::Class cls) {
    const objc::Class rootClass = objc_getClass(root);
    if (class_getInstanceSize(rootClass) == class_getInstanceSize(objc_getClass("NSObject"))) {
        return true;
    }
    while (cls != nullptr && cls != rootClass) {
        cls = class_getSuperclass(cls);
    }
    return cls != nullptr;
}

/// The superclass that the plan gives the class, else the usual one.
const char *SuperclassOf(const char *name, const char *usual, const char *root) {
    const auto planned = ThePlan().superclasses.find(name);
    if (planned == ThePlan().superclasses.end()) {
        return usual;
    }
    const auto &[superclass, place] = planned->second;
    const objc::Class cls = objc_getClass(superclass.c_str());
    if (cls == nullptr || !KeepsWhat(root, cls)) {
        throw script::ScriptError(place, superclass + " cannot be the superclass of " + name);
    }
    return superclass.c_str();
}

} // namespace

HostClass::HostClass(const char *root, const char *base, const char *name, const char *sibling)
    : name_(name), base_(base, root) {
    TheInventory().classes.insert(name);
    if (!ThePlan().lackedClasses.contains(name)) {
        own_.emplace(MakePlannedClass(name, SuperclassOf(name, base, root)));
    }
    Class(sibling, base);
}

Class<> *HostClass::HolderOf(const char *selector, bool optional) {
    const Plan &plan = ThePlan();
    const Plan::Method method{name_, selector};
    TheInventory().methods[method] = optional;
    TheInventory().selectors.insert(selector);
    if (plan.lackedMethods.contains(method) || (optional && !plan.extraMethods.contains(method))) {
        return nullptr;
    }
    return plan.inheritedMethods.contains(method) ? &base_ : own_ ? &*own_ : nullptr;
}

bool HostClass::AddPlannedShape(objc::Class holder, const char *selector) const {
    const auto found = ThePlan().shapes.find({name_, selector});
    if (found == ThePlan().shapes.end()) {
        return false;
    }
    const auto &[encoding, place] = found->second;
    AddShapedMethod(holder, selector, encoding, place, Echo(encoding, place));
    return true;
}

Class<> MakePlannedClass(const char *name, const char *superclass) {
    Class<> made(name, superclass, PlannedVariables(name));
    if (IsKeyed(made.pointer())) {
        TheInventory().keyed.insert(name);
        AddPlannedAccessors(name);
    }
    return made;
}

objc::Ref<ns::Object> MakeObject(const char *className) {
    const ns::Object cls{objc::AsObject(objc_getClass(className))};
    return objc::Ref<ns::Object>::Adopt(objc::Send<"new", ns::Object>(cls));
}

} // namespace sim::hosts
