#include "uikit/animation.hpp"

#include "runtime/clock.hpp"
#include "uikit/color.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <cmath>

namespace sim {

struct AnimationGroup {
    AnimationTiming timing;
    double start = 0; // when the delay is over
    std::size_t parts = 0;
    bool finished = true; // no part was cut short
    bool done = false;
    clock::Token end = 0;
    std::function<void(bool)> completion;
};

namespace {

/// The animation blocks that run now, the innermost last; null for one in which changes are not animated.
std::vector<std::shared_ptr<AnimationGroup>> &OpenBlocks() {
    static std::vector<std::shared_ptr<AnimationGroup>> blocks;
    return blocks;
}

/// Keeps a block open until the end of a scope, also when an exception leaves the scope.
class OpenBlock {
  public:
    explicit OpenBlock(std::shared_ptr<AnimationGroup> group) {
        OpenBlocks().push_back(std::move(group));
    }
    OpenBlock(const OpenBlock &) = delete;
    OpenBlock &operator=(const OpenBlock &) = delete;
    ~OpenBlock() {
        OpenBlocks().pop_back();
    }
};

/// How many blocks wait for their end.
long unfinished = 0;

void Finish(const std::shared_ptr<AnimationGroup> &group) {
    --unfinished;
    group->done = true;
    if (group->completion) {
        // Taken out first: its captures are freed once it has run, not when the last view forgets the animation.
        const auto completion = std::exchange(group->completion, nullptr);
        completion(group->finished);
    }
}

void ScheduleFinish(const std::shared_ptr<AnimationGroup> &group, double delay) {
    group->end = clock::Schedule(delay, [group] { Finish(group); });
}

/// One coordinate of a cubic Bézier curve from 0 to 1 with the given inner control values.
double Bezier(double first, double second, double t) {
    const double u = 1 - t;
    return 3 * u * u * t * first + 3 * u * t * t * second + t * t * t;
}

double Ease(double x1, double x2, double fraction) {
    double low = 0;
    double high = 1;
    for (int i = 0; i < 40; ++i) {
        const double middle = (low + high) / 2;
        (Bezier(x1, x2, middle) < fraction ? low : high) = middle;
    }
    return Bezier(0, 1, (low + high) / 2);
}

/// How far a spring that starts at distance 1 is from rest after `time`.
double SpringDistance(double damping, double frequency, double velocity, double time) {
    if (damping >= 1) {
        return std::exp(-frequency * time) * (1 + (frequency - velocity) * time);
    }
    const double damped = frequency * std::sqrt(1 - damping * damping);
    return std::exp(-damping * frequency * time) *
           (std::cos(damped * time) + (damping * frequency - velocity) / damped * std::sin(damped * time));
}

/// The largest distance that the spring can still have after `time`.
double SpringEnvelope(double damping, double frequency, double velocity, double time) {
    if (damping >= 1) {
        return std::abs(SpringDistance(damping, frequency, velocity, time));
    }
    const double damped = frequency * std::sqrt(1 - damping * damping);
    return std::exp(-damping * frequency * time) * std::hypot(1, (damping * frequency - velocity) / damped);
}

bool Differs(const ViewValues &left, const ViewValues &right) {
    return left.center != right.center || left.bounds != right.bounds || left.transform != right.transform ||
           left.alpha != right.alpha || RgbaOf(left.backgroundColor) != RgbaOf(right.backgroundColor);
}

cg::AffineTransform Add(cg::AffineTransform to, cg::AffineTransform what, double times) {
    return {to.a + what.a * times, to.b + what.b * times,   to.c + what.c * times,
            to.d + what.d * times, to.tx + what.tx * times, to.ty + what.ty * times};
}

cg::Point Add(cg::Point to, cg::Point what, double times) {
    return {to.x + what.x * times, to.y + what.y * times};
}

cg::Size Add(cg::Size to, cg::Size what, double times) {
    return {to.width + what.width * times, to.height + what.height * times};
}

/// Adds the difference between the two sets of values to the animation.
void AddDifference(ViewAnimation &animation, const ViewValues &before, const ViewValues &after) {
    const auto difference = [](auto from, auto to, auto sum) { return Add(Add(sum, from, 1), to, -1); };
    animation.center = difference(before.center, after.center, animation.center);
    animation.bounds.origin = difference(before.bounds.origin, after.bounds.origin, animation.bounds.origin);
    animation.bounds.size = difference(before.bounds.size, after.bounds.size, animation.bounds.size);
    animation.transform = difference(before.transform, after.transform, animation.transform);
    animation.alpha += before.alpha - after.alpha;
    if (!animation.changesBackground && RgbaOf(before.backgroundColor) != RgbaOf(after.backgroundColor)) {
        animation.changesBackground = true;
        animation.backgroundBefore = before.backgroundColor;
    }
}

/// The colour at a fraction of the way from one to the other; nil counts as the other colour with alpha 0.
ui::Color Mix(ui::Color from, ui::Color to, double fraction) {
    if (!from && !to) {
        return {};
    }
    Rgba first = RgbaOf(from ? from : to);
    Rgba second = RgbaOf(to ? to : from);
    first.a = from ? first.a : 0;
    second.a = to ? second.a : 0;
    const auto at = [fraction](double a, double b) { return std::clamp(a + (b - a) * fraction, 0.0, 1.0); };
    return ui::Color::colorWithRed(at(first.r, second.r), at(first.g, second.g), at(first.b, second.b),
                                   at(first.a, second.a));
}

void ForgetFinished(ViewState &state) {
    std::erase_if(state.animations, [](const ViewAnimation &animation) { return animation.group->done; });
}

} // namespace

AnimationCurve AnimationCurve::Plain(UIViewAnimationCurve curve) {
    AnimationCurve plain;
    plain.kind_ = curve;
    return plain;
}

AnimationCurve AnimationCurve::Spring(double damping, double velocity, double duration) {
    constexpr double kSettled = 0.001;
    AnimationCurve spring;
    spring.isSpring_ = true;
    spring.damping_ = std::clamp(damping, 0.01, 1.0);
    spring.velocity_ = velocity;
    spring.duration_ = std::max(duration, 1e-6);
    // A stiffer spring rests sooner: search for the one that rests just when the time is over.
    double low = 0.01 / spring.duration_;
    double high = 1e5 / spring.duration_;
    for (int i = 0; i < 100; ++i) {
        const double middle = std::sqrt(low * high);
        const bool settled = SpringEnvelope(spring.damping_, middle, velocity, spring.duration_) < kSettled;
        (settled ? high : low) = middle;
    }
    spring.frequency_ = high;
    return spring;
}

double AnimationCurve::At(double fraction) const {
    if (fraction <= 0) {
        return 0;
    }
    if (fraction >= 1) {
        return 1;
    }
    if (isSpring_) {
        return 1 - SpringDistance(damping_, frequency_, velocity_, fraction * duration_);
    }
    constexpr double kEaseStart = 0.42;
    constexpr double kEaseEnd = 0.58;
    switch (kind_) {
    case UIViewAnimationCurveEaseInOut:
        return Ease(kEaseStart, kEaseEnd, fraction);
    case UIViewAnimationCurveEaseIn:
        return Ease(kEaseStart, 1, fraction);
    case UIViewAnimationCurveEaseOut:
        return Ease(0, kEaseEnd, fraction);
    default:
        return fraction;
    }
}

void Animate(AnimationTiming timing, const std::function<void()> &changes, std::function<void(bool)> completion) {
    const std::shared_ptr<AnimationGroup> outer = OpenBlocks().empty() ? nullptr : OpenBlocks().back();
    if (outer != nullptr && (timing.options & UIViewAnimationOptionOverrideInheritedDuration) == 0) {
        timing.duration = outer->timing.duration;
    }
    if (outer != nullptr && (timing.options & UIViewAnimationOptionOverrideInheritedCurve) == 0) {
        timing.curve = outer->timing.curve;
    }
    const auto group = std::make_shared<AnimationGroup>();
    group->timing = timing;
    group->start = clock::Now() + std::max(timing.delay, 0.0);
    group->completion = std::move(completion);
    const bool takesTime = timing.duration > 0 || timing.delay > 0;
    {
        const OpenBlock open(takesTime ? group : nullptr);
        if (changes) {
            changes();
        }
    }
    ++unfinished;
    ScheduleFinish(group, group->parts != 0 ? std::max(timing.delay, 0.0) + std::max(timing.duration, 0.0) : 0);
}

void WithoutAnimation(const std::function<void()> &changes) {
    const OpenBlock open(nullptr);
    if (changes) {
        changes();
    }
}

void EndAnimations(ui::View view) {
    for (const ViewAnimation &animation : std::exchange(ViewStateOf(view).animations, {})) {
        AnimationGroup &group = *animation.group;
        if (group.done) {
            continue;
        }
        group.finished = false;
        if (--group.parts == 0 && group.end != 0) { // no end yet: its block is still running
            clock::Cancel(group.end);
            ScheduleFinish(animation.group, 0);
        }
    }
}

bool AnimationsRun() {
    return unfinished > 0;
}

bool AnimationSuspendsInteraction(ui::View view) {
    const std::vector<ViewAnimation> &animations = ViewStateOf(view).animations;
    return std::ranges::any_of(animations, [](const ViewAnimation &animation) {
        return !animation.group->done &&
               (animation.group->timing.options & UIViewAnimationOptionAllowUserInteraction) == 0;
    });
}

void RecordAnimation(ui::View view, const ViewValues &before, const ViewValues &after) {
    const std::shared_ptr<AnimationGroup> group = OpenBlocks().empty() ? nullptr : OpenBlocks().back();
    // A view outside every window shows nothing that could move.
    if (group == nullptr || !Differs(before, after) || !WindowOf(view)) {
        return;
    }
    ViewState &state = ViewStateOf(view);
    ForgetFinished(state);
    auto place = std::ranges::find(state.animations, group, &ViewAnimation::group);
    if (place == state.animations.end()) {
        ++group->parts;
        place = state.animations.emplace(place);
        place->group = group;
    }
    AddDifference(*place, before, after);
}

ViewValues PresentedValues(ui::View view) {
    ViewState &state = ViewStateOf(view);
    ForgetFinished(state);
    ViewValues values = state.model;
    for (const ViewAnimation &animation : state.animations) {
        const AnimationGroup &group = *animation.group;
        const double elapsed = clock::Now() - group.start;
        const double duration = group.timing.duration;
        const double fraction = duration > 0 ? elapsed / duration : (elapsed < 0 ? 0 : 1);
        const double progress = group.timing.curve.At(fraction);
        const double rest = 1 - progress;
        values.center = Add(values.center, animation.center, rest);
        values.bounds.origin = Add(values.bounds.origin, animation.bounds.origin, rest);
        values.bounds.size = Add(values.bounds.size, animation.bounds.size, rest);
        values.transform = Add(values.transform, animation.transform, rest);
        values.alpha += animation.alpha * rest;
        if (animation.changesBackground) {
            values.backgroundColor = Mix(animation.backgroundBefore, state.model.backgroundColor, progress);
        }
    }
    values.alpha = std::clamp(values.alpha, 0.0, 1.0);
    return values;
}

} // namespace sim
