#pragma once
// Frames: sixty a second, of which only those are drawn in which something looks different.

#include <cstdint>

namespace sim::window {

/// Counts frames that were due, because the screen was changing, and frames that were drawn.
class Frames {
  public:
    static constexpr int kPerSecond = 60;

    /// A frame is over: `number` counts sixtieths of a second. While frame after frame is drawn, those that were
    /// skipped on the way were due as well.
    void Over(std::int64_t number, bool drawn) {
        if (drawn) {
            due_ += drawnLast_ ? number - last_ : 1;
            ++drawn_;
        }
        drawnLast_ = drawn;
        last_ = number;
    }

    std::int64_t due() const {
        return due_;
    }
    std::int64_t drawn() const {
        return drawn_;
    }

  private:
    std::int64_t last_ = 0;
    bool drawnLast_ = false;
    std::int64_t due_ = 0;
    std::int64_t drawn_ = 0;
};

} // namespace sim::window
