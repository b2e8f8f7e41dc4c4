// Fingers.

#include "uikit/touch.hpp"

#include "driver/commands/commands.hpp"
#include "driver/targets.hpp"
#include "runtime/clock.hpp"
#include "uikit/application.hpp"

#include <cmath>

namespace sim::driver {
namespace {

using script::Bare;
using script::WordReader;

constexpr TouchId kFinger = 1;     // the one that tap, press and drag use
constexpr double kLongPress = 0.6; // seconds; recognisers ask for half a second

/// Says what a finger did, on which view and where.
void SayTouch(const char *what, cg::Point point) {
    script::Fact fact{Bare(what)};
    const std::vector<script::Word> view = DescribeView(HitTestScreen(point));
    fact.insert(fact.end(), view.begin(), view.end());
    fact.insert(fact.end(), {Bare("at"), Bare(point.x), Bare(point.y)});
    Say(fact);
}

void CheckFree(TouchId finger, const WordReader &words) {
    if (touch::IsDown(finger)) {
        words.Fail("finger " + std::to_string(finger) + " is down already");
    }
}

/// A finger that landed may bring a view to its place in a later turn.
void Land(TouchId finger, cg::Point point) {
    touch::Began(finger, point);
    clock::Drain();
}

void Move(TouchId finger, cg::Point from, cg::Point to, long steps, double seconds) {
    for (long i = 1; i <= steps; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(steps);
        touch::Moved(finger, {std::lerp(from.x, to.x, part), std::lerp(from.y, to.y, part)});
        clock::Advance(seconds / static_cast<double>(steps));
    }
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

} // namespace

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

} // namespace sim::driver
