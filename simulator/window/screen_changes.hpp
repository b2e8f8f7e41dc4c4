#pragma once
// What of the screen looks different from one moment to the next: every view with its presented values and a
// fingerprint of what it draws itself. A view that has moved by whole pixels, with all in it and nothing else, is told
// apart: it can be shown at its new place without being drawn.

#include "render/surface.hpp"
#include "uikit/view_renderer.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace sim::window {

using Region = std::unique_ptr<cairo_region_t, Destroyer<cairo_region_destroy>>;

/// A view that alone has moved, by whole pixels.
struct Moved {
    ui::View view;
    cairo_matrix_t matrix{};                  // from its bounds' space to the picture's pixels, now
    cairo_rectangle_int_t box{};              // what it and all in it cover now, also beyond the picture
    std::vector<cairo_rectangle_int_t> above; // what is drawn after it
    Region region;                            // where it was and is
};

struct Changes {
    Region region;
    std::optional<Moved> moved; // when nothing else has changed
    bool settles = false;       // nothing has changed: something is to be drawn that was only shown
};

class ScreenChanges {
  public:
    ScreenChanges();
    ScreenChanges(const ScreenChanges &) = delete;
    ScreenChanges &operator=(const ScreenChanges &) = delete;
    ~ScreenChanges();

    /// The pixels, so many a point, that may differ from those at the last call; all of them at first and whenever
    /// the screen or its scale is another. What views draw themselves can differ only when code ran in between:
    /// otherwise they are not asked. Takes out of the backdrops those that have to be made anew.
    Changes Look(double scale, bool codeRan, Backdrops &backdrops);

    /// After a look: the view that was told as moved is shown without being drawn, and differs by some roundings. It
    /// counts as changed as soon as it rests.
    void DrawWhenAtRest(const Moved &moved);
    /// After a look: the whole region of changes has been drawn.
    void HasBeenDrawn();

  private:
    struct Seen;
    class Walk;

    static bool LooksTheSame(const Seen &a, const Seen &b);
    bool Rests(double scale, bool codeRan);
    std::optional<Moved> FindMoved(const std::vector<Seen> &before) const;

    Region unsettledRegion_;                  // where anything has been shown without being drawn
    std::unique_ptr<std::vector<Seen>> seen_; // in the order in which they are drawn
    Surface scratch_;                         // where views draw for their fingerprints
    std::uint64_t screen_ = 0;                // of what every view depends on
    double scale_ = 0;                        // at the last look
    double minute_ = 0;                       // at the last look, which the status bar tells
    ui::View unsettled_;                      // shown without being drawn at the last look
};

} // namespace sim::window
