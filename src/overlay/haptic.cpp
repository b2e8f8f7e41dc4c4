#include "overlay/haptic.hpp"

#include "apple/uikit/feedback.hpp"
#include "objc/ref.hpp"

namespace corvel {

void PlayImpactHaptic() {
    const auto generator = objc::Ref<ui::ImpactFeedbackGenerator>::Adopt(
        ns::Alloc<ui::ImpactFeedbackGenerator>().initWithStyle(UIImpactFeedbackStyleMedium));
    generator->prepare();
    generator->impactOccurred();
}

} // namespace corvel
