#include "hosts/plan.hpp"

namespace sim::hosts {
namespace {

/// The entry of the method in the class or the nearest one above it; the end when there is none.
template <class Methods> auto Find(const Methods &methods, objc::Class cls, const std::string &selector) {
    auto found = methods.end();
    for (; cls != nullptr && found == methods.end() && !methods.empty(); cls = class_getSuperclass(cls)) {
        found = methods.find({class_getName(cls), selector});
    }
    return found;
}

} // namespace

Plan &ThePlan() {
    static Plan plan;
    return plan;
}

const std::string *Plan::ReasonToThrow(objc::Class cls, const std::string &selector) const {
    const auto found = Find(throwing, cls, selector);
    return found != throwing.end() ? &found->second : nullptr;
}

bool Plan::Refuses(objc::Class cls, const std::string &selector) const {
    return Find(refusing, cls, selector) != refusing.end();
}

} // namespace sim::hosts
