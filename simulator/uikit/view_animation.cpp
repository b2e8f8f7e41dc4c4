// UIView: animation blocks.

#include "runtime/block_function.hpp"
#include "uikit/view_parts.hpp"

namespace sim {
namespace {

using Changes = objc::Block<void()>;
using Completion = objc::Block<void(bool)>;

void AnimatePlainly(double duration, double delay, UIViewAnimationOptions options, Changes changes,
                    Completion completion) {
    // The options carry a curve in four of their bits.
    const auto curve = static_cast<UIViewAnimationCurve>(options >> 16 & 15);
    Animate({duration, delay, options, AnimationCurve::Plain(curve)}, FunctionOf(changes), FunctionOf(completion));
}

} // namespace

void DefineViewAnimation(ViewClass &view) {
    view.ClassMethod<"animateWithDuration:animations:">(
        [](ui::View, double duration, Changes changes) { AnimatePlainly(duration, 0, 0, changes, {}); });
    view.ClassMethod<"animateWithDuration:animations:completion:">(
        [](ui::View, double duration, Changes changes, Completion completion) {
            AnimatePlainly(duration, 0, 0, changes, completion);
        });
    view.ClassMethod<"animateWithDuration:delay:options:animations:completion:">(
        [](ui::View, double duration, double delay, UIViewAnimationOptions options, Changes changes,
           Completion completion) { AnimatePlainly(duration, delay, options, changes, completion); });
    view.ClassMethod<
        "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:animations:completion:">(
        [](ui::View, double duration, double delay, double damping, double velocity, UIViewAnimationOptions options,
           Changes changes, Completion completion) {
            Animate({duration, delay, options, AnimationCurve::Spring(damping, velocity, duration)},
                    FunctionOf(changes), FunctionOf(completion));
        });
    view.ClassMethod<"performWithoutAnimation:">(
        [](ui::View, Changes changes) { WithoutAnimation(FunctionOf(changes)); });
}

} // namespace sim
