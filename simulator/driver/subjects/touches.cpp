// Fingers.

#include "apple/uikit/slider.hpp"
#include "driver/fingers.hpp"
#include "driver/subjects/subjects.hpp"
#include "driver/targets.hpp"
#include "driver/view_properties.hpp"
#include "runtime/clock.hpp"
#include "uikit/application.hpp"
#include "uikit/view_geometry.hpp"

namespace sim::driver {
namespace {

constexpr double kLongPress = 0.6; // seconds; recognisers ask for half a second

/// Says what a finger did, on which view and where.
void SayTouch(const char *what, cg::Point point) {
    Fact fact{Bare(what)};
    Append(fact, DescribeView(HitTestScreen(point)));
    Append(fact, Fact{Bare("at"), Bare(point.x), Bare(point.y)});
    Say(fact);
}

/// Where a drag ends: `by DX DY` from its start, or `to` a target.
cg::Point ReadEnd(WordReader &words, cg::Point start) {
    if (words.Take("by")) {
        const double x = words.Number("the way to the right");
        return {start.x + x, start.y + words.Number("the way down")};
    }
    words.Expect("to");
    if (words.SeesNumber()) {
        const double x = words.Number("x");
        return {x, words.Number("y")};
    }
    return ReadTarget(words).point;
}

/// `finger N`; 1 when it is not said.
TouchId ReadFinger(WordReader &words) {
    return words.Take("finger") ? static_cast<TouchId>(words.Integer("the finger's number")) : kFinger;
}

void DoTap(Session &, WordReader &words) {
    const cg::Point point = ReadTarget(words).point;
    const long times = words.Take("times") ? words.Integer("how often") : 1;
    CheckFree(kFinger, words);
    for (long i = 0; i < times; ++i) {
        SayTouch("tap", point);
        Land(kFinger, point);
        touch::Ended(kFinger, point);
        clock::Drain();
    }
}

void DoPress(Session &, WordReader &words) {
    const cg::Point point = ReadTarget(words).point;
    const double seconds = words.Take("for") ? words.Number("seconds") : kLongPress;
    const bool held = words.Take("held");
    CheckFree(kFinger, words);
    SayTouch("press", point);
    Land(kFinger, point);
    clock::Advance(seconds);
    if (!held) {
        touch::Ended(kFinger, point);
    }
}

void DoDrag(Session &, WordReader &words) {
    const cg::Point start = ReadTarget(words).point;
    const cg::Point end = ReadEnd(words, start);
    const double seconds = words.Take("in") ? words.Number("seconds") : 0;
    const long steps = words.Take("steps") ? words.Integer("the number of steps") : 10;
    if (steps < 1) {
        words.Fail("a drag takes at least one step");
    }
    const bool held = words.Take("held");
    const bool cancelled = !held && words.Take("cancelled");
    CheckFree(kFinger, words);
    SayTouch("drag", start);
    Land(kFinger, start);
    Move(kFinger, start, end, steps, seconds);
    if (cancelled) {
        touch::Cancelled(kFinger);
    } else if (!held) {
        touch::Ended(kFinger, end);
    }
}

void DoTouch(Session &, WordReader &words) {
    const std::string what = words.Name("down, move, up or cancel");
    const bool lands = what == "down";
    if (lands || what == "move") {
        const cg::Point point = ReadTarget(words).point;
        const TouchId finger = ReadFinger(words);
        if (lands) {
            CheckFree(finger, words);
            SayTouch("touch", point);
            touch::Began(finger, point);
        } else {
            touch::Moved(finger, point);
        }
    } else if (what == "up") {
        const cg::Point point = ReadTarget(words).point;
        touch::Ended(ReadFinger(words), point);
    } else if (what == "cancel") {
        touch::Cancelled(ReadFinger(words));
    } else {
        words.Fail("expected down, move, up or cancel, not " + what);
    }
}

/// The middle of a slider's thumb as it stands at a value, on the screen.
cg::Point ThumbAt(ui::Slider slider, float value) {
    const cg::Rect bounds = slider.bounds();
    const auto track = objc::Send<"trackRectForBounds:", cg::Rect>(slider, bounds);
    const auto thumb = objc::Send<"thumbRectForBounds:trackRect:value:", cg::Rect>(slider, bounds, track, value);
    return ToScreen(slider, {thumb.origin.x + (thumb.size.width / 2), thumb.origin.y + (thumb.size.height / 2)});
}

void DoSlide(Session &, WordReader &words) {
    constexpr int kSteps = 10;
    const auto slider = objc::As<ui::Slider>(ReadTarget(words).view);
    words.Expect("to");
    const auto value = static_cast<float>(words.Number("the value"));
    words.End();
    if (!IsKind(slider, ui::Slider::kClassName)) {
        words.Fail("that is no slider");
    }
    const cg::Point start = ThumbAt(slider, slider.value());
    const cg::Point end{ThumbAt(slider, value).x, start.y};
    Land(kFinger, start);
    Move(kFinger, start, end, kSteps, 0);
    touch::Ended(kFinger, end);
    clock::Drain();
    Say({Bare("slide"), Bare("to"), Bare(slider.value())});
}

constexpr Command kCommands[] = {
    {"tap", &DoTap}, {"press", &DoPress}, {"drag", &DoDrag}, {"touch", &DoTouch}, {"slide", &DoSlide},
};

} // namespace

constinit const Subject kTouches{kCommands, {}};

} // namespace sim::driver
