#include "uikit/haptics.hpp"

#include "apple/uikit/feedback.hpp"
#include "runtime/clock.hpp"
#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"

namespace sim {
namespace {

struct GeneratorState {
    ui::ImpactStyle style = ui::ImpactStyle::kMedium; // of a generator made without a style
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
    impact.Method<"initWithStyle:">([](ns::Object self, ui::ImpactStyle style) {
        const auto made = objc::Send<"init", ns::Object>(self);
        StateOf<GeneratorState>(made).style = style;
        return made;
    });
    impact.Method<"impactOccurred">([](GeneratorState &state) {
        Impacts().push_back({clock::Now(), static_cast<long>(state.style), state.prepared});
        state.prepared = false;
    });
}

const std::vector<HapticImpact> &HapticImpacts() {
    return Impacts();
}

} // namespace sim
