#include "hosts/inventory.hpp"

#include "hosts/keyed.hpp"
#include "objc/class_builder.hpp"

namespace sim::hosts {
namespace {

using script::Place;
using script::ScriptError;

constexpr const char *kLacking = ": only some builds have that method, this one has not";

std::string NameOf(const Plan::Method &method) {
    return method.first + " " + method.second;
}

/// The methods must be the app's own; `optional` says which ones can be meant.
void CheckDeclared(const std::map<Plan::Method, Place> &planned, bool optional, const char *otherwise) {
    for (const auto &[method, place] : planned) {
        const auto found = TheInventory().methods.find(method);
        if (found == TheInventory().methods.end()) {
            throw ScriptError(place, "the app has no method " + NameOf(method));
        }
        if (found->second != optional) {
            throw ScriptError(place, NameOf(method) + otherwise);
        }
    }
}

void CheckProperty(const Plan::Property &property) {
    if (!TheInventory().keyed.contains(property.className)) {
        throw ScriptError(property.place, "the app has no class " + property.className + " whose objects keep values");
    }
    if (property.accessor && TheInventory().methods.contains({property.className, property.name})) {
        throw ScriptError(property.place, property.className + " has a method " + property.name + " already");
    }
}

} // namespace

Inventory &TheInventory() {
    static Inventory inventory;
    return inventory;
}

void CheckSetUp() {
    const Plan &plan = ThePlan();
    for (const auto &[name, place] : plan.lackedClasses) {
        if (!TheInventory().classes.contains(name)) {
            throw ScriptError(place, "the app has no class " + name);
        }
    }
    for (const auto &[name, superclass] : plan.superclasses) {
        if (!TheInventory().classes.contains(name)) {
            throw ScriptError(superclass.second, "the app has no class " + name);
        }
    }
    CheckDeclared(plan.extraMethods, true, ": every build has that method");
    CheckDeclared(plan.lackedMethods, false, kLacking);
    for (const auto &[method, place] : plan.inheritedMethods) {
        // A method that only some builds have can be inherited in those.
        CheckDeclared({{method, place}}, plan.extraMethods.contains(method), kLacking);
    }
    for (const auto &[method, shape] : plan.shapes) {
        CheckDeclared({{method, shape.place}}, plan.extraMethods.contains(method), kLacking);
    }
    for (const Plan::Property &property : plan.properties) {
        CheckProperty(property);
    }
    for (const auto &[method, planned] : plan.throwing) {
        CheckMethodOrKey(method, planned.place);
    }
    for (const auto &[method, place] : plan.refusing) {
        CheckMethod(method, place);
    }
}

void CheckMethod(const Plan::Method &method, const Place &place) {
    const objc::Class cls = objc_getClass(method.first.c_str());
    if (cls == nullptr) {
        throw ScriptError(place, "the app has no class " + method.first);
    }
    const objc::SEL selector = sel_registerName(method.second.c_str());
    const bool has = class_getInstanceMethod(cls, selector) != nullptr ||
                     class_getInstanceMethod(objc::MetaclassOf(cls), selector) != nullptr;
    if (!has || !TheInventory().selectors.contains(method.second)) {
        throw ScriptError(place, "the app has no method " + NameOf(method) + (has ? " of its own" : ""));
    }
}

void CheckMethodOrKey(const Plan::Method &method, const Place &place) {
    const objc::Class cls = objc_getClass(method.first.c_str());
    if (!IsKeyed(cls) || method.second.find(':') != std::string::npos) {
        CheckMethod(method, place);
    }
}

} // namespace sim::hosts
