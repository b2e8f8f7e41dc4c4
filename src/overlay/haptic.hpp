#pragma once
// Haptic feedback.

namespace corvel {

/// One tap of the medium kind.
void PlayImpactHaptic();

} // namespace corvel
