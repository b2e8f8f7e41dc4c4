#include "hosts/plan.hpp"

namespace sim::hosts {
namespace {

/// The entry of the method in the class or the nearest one above it; the end when there is none.
template <class Methods> auto Find(Methods &methods, objc::Class cls, const std::string &selector) {
    auto found = methods.end();
    for (; cls != nullptr && found == methods.end() && !methods.empty(); cls = class_getSuperclass(cls)) {
        found = methods.find({class_getName(cls), selector});
    }
    return found;
}

void WantMet(const Plan::Method &method, const Plan::Throw &planned) {
    if (!planned.met && !planned.maybe) {
        throw script::ScriptError(planned.place, "nothing met this throw of " + method.first + " " + method.second);
    }
}

} // namespace

Plan &ThePlan() {
    static Plan plan;
    return plan;
}

const std::string *Plan::ReasonToThrow(objc::Class cls, const std::string &selector) const {
    const auto found = Find(throwing, cls, selector);
    return found != throwing.end() ? &found->second.reason : nullptr;
}

const std::string *Plan::MeetThrow(objc::Class cls, const std::string &selector) {
    const auto found = Find(throwing, cls, selector);
    if (found == throwing.end()) {
        return nullptr;
    }
    found->second.met = true;
    return &found->second.reason;
}

bool Plan::Refuses(objc::Class cls, const std::string &selector) const {
    return Find(refusing, cls, selector) != refusing.end();
}

void Plan::PlanThrow(const Method &method, const Throw &planned) {
    if (const auto before = throwing.find(method); before != throwing.end()) {
        WantMet(method, before->second);
    }
    throwing[method] = planned;
}

void Plan::EndThrowing() {
    for (const auto &[method, planned] : throwing) {
        WantMet(method, planned);
    }
    throwing.clear();
}

} // namespace sim::hosts
