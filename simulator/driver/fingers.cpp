#include "driver/fingers.hpp"

#include "runtime/clock.hpp"

#include <cmath>

namespace sim::driver {

void CheckFree(TouchId finger, const WordReader &words) {
    if (touch::IsDown(finger)) {
        words.Fail("finger " + std::to_string(finger) + " is down already");
    }
}

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

} // namespace sim::driver
