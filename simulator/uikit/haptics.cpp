#include "uikit/haptics.hpp"

#include "runtime/clock.hpp"
#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"

namespace sim {
namespace {

struct GeneratorState {
    UIImpactFeedbackStyle style = UIImpactFeedbackStyleMedium; // of a generator made without a style
    bool prepared = false;
};

std::vector<HapticImpact> &Impacts() {
    static std::vector<HapticImpact> impacts;
    return impacts;
}

} // namespace

void DefineHaptics() {
    auto generator = Class<GeneratorState>("UIFeedbackGenerator", "NSObject");
    generator.Method<"prepare">([](GeneratorState &state) { state.prepared = true; });

    auto impact = Class("UIImpactFeedbackGenerator", "UIFeedbackGenerator");
    impact.Method<"initWithStyle:">([](ns::Object self, UIImpactFeedbackStyle style) {
        const auto made = objc::Send<"init", ns::Object>(self);
        StateOf<GeneratorState>(made).style = style;
        return made;
    });
    impact.Method<"impactOccurred">([](GeneratorState &state) {
        Impacts().push_back({clock::Now(), state.style, state.prepared});
        state.prepared = false;
    });
}

const std::vector<HapticImpact> &HapticImpacts() {
    return Impacts();
}

void ForgetHapticImpacts() {
    Impacts().clear();
}

} // namespace sim
