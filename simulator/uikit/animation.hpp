#pragma once
// View animations: what changes inside an animation block starts an offset that decays to zero while the model value
// already holds. Offsets of several animations add up, as UIKit's additive animations do.

#include "apple/uikit/view.hpp"

#include <functional>
#include <memory>
#include <vector>

namespace sim {

/// How far an animation has come (0 at its start, 1 at its end) at a fraction of its duration.
class AnimationCurve {
  public:
    static AnimationCurve Plain(UIViewAnimationCurve curve);
    /// A spring that has settled to a thousandth when the duration (seconds) is over. Damping 1 does not overshoot;
    /// the velocity is in whole distances a second.
    static AnimationCurve Spring(double damping, double velocity, double duration);

    double At(double fraction) const;

  private:
    UIViewAnimationCurve kind_ = UIViewAnimationCurveEaseInOut;
    bool isSpring_ = false;
    double damping_ = 1;
    double velocity_ = 0;
    double frequency_ = 0;
    double duration_ = 0;
};

/// How an animation block runs. Times in seconds.
struct AnimationTiming {
    double duration = 0;
    double delay = 0;
    UIViewAnimationOptions options = 0;
    AnimationCurve curve = AnimationCurve::Plain(UIViewAnimationCurveEaseInOut);
};

struct AnimationGroup;
struct ViewValues;

/// What one animation block does to one view: the difference between the values before and after it.
struct ViewAnimation {
    std::shared_ptr<AnimationGroup> group;
    cg::Point center;
    cg::Rect bounds;
    cg::AffineTransform transform{0, 0, 0, 0, 0, 0};
    double alpha = 0;
    bool changesBackground = false;
    objc::Ref<ui::Color> backgroundBefore;
};

/// Runs the changes as an animation block: changes of views in a window are presented over the duration. The completion
/// (may be empty) is called on the clock with whether everything ran to its end; a block that changes nothing, or lasts
/// no time, completes at the next drain.
void Animate(AnimationTiming timing, const std::function<void()> &changes, std::function<void(bool)> completion);

/// Runs the changes unanimated, even within an animation block.
void WithoutAnimation(const std::function<void()> &changes);

/// Starts an animation of the difference when an animation block is running and the view is in a window.
void RecordAnimation(ui::View view, const ViewValues &before, const ViewValues &after);

/// Ends the animations of one view at once; a block's completion gets NO when its last animation ends so.
void EndAnimations(ui::View view);

/// Whether an animation block is under way, or waits for its delay or its completion: views may look different from one
/// moment to the next though no code runs.
bool AnimationsRun();

/// Whether the view gets no touches because of an animation that has not ended and does not allow user interaction.
bool AnimationSuspendsInteraction(ui::View view);

} // namespace sim
