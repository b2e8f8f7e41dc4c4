#include "uikit/haptics.hpp"

#include "apple/uikit/feedback.hpp"
#include "runtime/clock.hpp"
#include "runtime/native_class.hpp"

namespace sim {
namespace {

constexpr long kMediumStyle = 1; // of a generator made without a style

struct GeneratorState {
    long style = kMediumStyle;
    bool prepared = false;
};

std::vector<HapticImpact> &Impacts() {
    static std::vector<HapticImpact> impacts;
    return impacts;
}

void Prepare(objc::Object self, objc::SEL) {
    StateOf<GeneratorState>(self).prepared = true;
}

ns::Object InitWithStyle(ns::Object self, objc::SEL, long style) {
    const auto generator = objc::Send<"init", ns::Object>(self);
    if (generator) {
        StateOf<GeneratorState>(generator).style = style;
    }
    return generator;
}

void ImpactOccurred(ns::Object self, objc::SEL) {
    auto &state = StateOf<GeneratorState>(self);
    Impacts().push_back({clock::Now(), state.style, state.prepared});
    state.prepared = false;
}

} // namespace

void RegisterHaptics() {
    const objc::MethodEntry generatorMethods[] = {objc::MethodNamed<"prepare", &Prepare>()};
    RegisterClassWithState<GeneratorState>("UIFeedbackGenerator", "NSObject", generatorMethods);
    const objc::MethodEntry impactMethods[] = {
        objc::MethodNamed<"initWithStyle:", &InitWithStyle>(),
        objc::MethodNamed<"impactOccurred", &ImpactOccurred>(),
    };
    RegisterClass("UIImpactFeedbackGenerator", "UIFeedbackGenerator", impactMethods);
}

const std::vector<HapticImpact> &HapticImpacts() {
    return Impacts();
}

} // namespace sim
