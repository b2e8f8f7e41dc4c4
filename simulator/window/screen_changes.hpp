#pragma once
// What of the screen looks different from one moment to the next: every view with its presented values and a
// fingerprint of what it draws itself.

#include "render/surface.hpp"
#include "uikit/view_renderer.hpp"

#include <cstdint>
#include <memory>
#include <vector>

namespace sim::window {

using Region = std::unique_ptr<cairo_region_t, Destroyer<cairo_region_destroy>>;

class ScreenChanges {
  public:
    ScreenChanges();
    ScreenChanges(const ScreenChanges &) = delete;
    ScreenChanges &operator=(const ScreenChanges &) = delete;
    ~ScreenChanges();

    /// The pixels, so many a point, that may differ from those at the last call; all of them at first and whenever
    /// the screen or its scale is another. What views draw themselves can differ only when code ran in between:
    /// otherwise they are not asked. Takes out of the backdrops those that have to be made anew.
    Region Look(double scale, bool codeRan, Backdrops &backdrops);

  private:
    struct Seen;
    class Walk;

    std::unique_ptr<std::vector<Seen>> seen_; // in the order in which they are drawn
    Surface scratch_;                         // where views draw for their fingerprints
    std::uint64_t screen_ = 0;                // of what every view depends on
};

} // namespace sim::window
