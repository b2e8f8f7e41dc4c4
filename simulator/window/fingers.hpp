#pragma once
// The mouse as fingers.

#include "apple/uikit/view.hpp"
#include "window/live_run.hpp"

#include <optional>

namespace sim::window {

class Fingers {
  public:
    explicit Fingers(LiveRun &run) : run_(run) {}

    /// A finger lands (points of the interface); with two, the other one lands on the opposite side of the middle and
    /// moves against it.
    void Press(cg::Point point, bool two);
    void Move(cg::Point point);
    void Lift(cg::Point point);
    bool AreDown() const {
        return down_;
    }

    /// Whether any finger, the wheel's too, is on the glass.
    bool AreMoving() const {
        return down_ || holds_.has_value();
    }

    /// The wheel over a point: a finger draws what scrolls there by so many points (up is above zero) in the time to
    /// come, a frame at a time. Nothing happens where nothing scrolls, and while the mouse's finger is down.
    void Scroll(cg::Point over, double points);

    /// What the wheel's finger does in a frame of so many milliseconds.
    void Frame(int milliseconds);

  private:
    void LandForWheel();
    void LiftFromWheel();

    LiveRun &run_;
    bool down_ = false;
    bool two_ = false;
    cg::Point last_;

    cg::Point over_;                 // where the wheel turns
    double left_ = 0;                // points that its finger has still to go
    int rested_ = 0;                 // milliseconds since it last moved
    std::optional<cg::Point> holds_; // where it is
    cg::Rect part_;                  // that it must not leave
};

} // namespace sim::window
