#pragma once
// Haptic feedback: felt by nobody here, so it is recorded.

#include "apple/uikit/feedback.hpp"

#include <vector>

namespace sim {

/// One impact, as it occurred.
struct HapticImpact {
    double time; // of the virtual clock, seconds
    UIImpactFeedbackStyle style;
    bool prepared; // whether the generator had been told to get ready
};

/// Every impact since launch, the oldest first.
const std::vector<HapticImpact> &HapticImpacts();

/// Drops them.
void ForgetHapticImpacts();

} // namespace sim
