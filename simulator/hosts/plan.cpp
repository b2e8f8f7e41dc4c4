#include "hosts/plan.hpp"

namespace sim::hosts {

Plan &ThePlan() {
    static Plan plan;
    return plan;
}

void Plan::LackClass(const std::string &cls) {
    lackedClasses_.insert(cls);
}

void Plan::LackMethod(const Method &method) {
    lackedMethods_.insert(method);
}

void Plan::HaveMethod(const Method &method) {
    extraMethods_.insert(method);
}

void Plan::InheritMethod(const Method &method) {
    inheritedMethods_.insert(method);
}

void Plan::Throw(const Method &method, const std::string &reason) {
    throwing_[method] = reason;
}

void Plan::StopThrowing() {
    throwing_.clear();
}

void Plan::Refuse(const Method &method) {
    refusing_.insert(method);
}

void Plan::StopRefusing() {
    refusing_.clear();
}

bool Plan::LacksClass(const std::string &cls) const {
    return lackedClasses_.contains(cls);
}

bool Plan::LacksMethod(const Method &method) const {
    return lackedMethods_.contains(method);
}

bool Plan::HasMethod(const Method &method) const {
    return extraMethods_.contains(method);
}

bool Plan::Inherits(const Method &method) const {
    return inheritedMethods_.contains(method);
}

const std::string *Plan::ReasonToThrow(objc::Class cls, const std::string &selector) const {
    for (; cls != nullptr && !throwing_.empty(); cls = class_getSuperclass(cls)) {
        const auto found = throwing_.find({class_getName(cls), selector});
        if (found != throwing_.end()) {
            return &found->second;
        }
    }
    return nullptr;
}

bool Plan::Refuses(objc::Class cls, const std::string &selector) const {
    for (; cls != nullptr && !refusing_.empty(); cls = class_getSuperclass(cls)) {
        if (refusing_.contains({class_getName(cls), selector})) {
            return true;
        }
    }
    return false;
}

} // namespace sim::hosts
