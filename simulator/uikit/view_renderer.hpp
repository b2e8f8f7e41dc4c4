#pragma once
// Draws view trees with cairo, as they show at the present moment of the clock: positions, transforms, group alpha,
// corner radii, borders, soft shadows, the order of z positions, blurred backdrops.

#include "apple/uikit/view.hpp"
#include "render/surface.hpp"

#include <unordered_map>
#include <vector>

struct _cairo;
struct _cairo_surface;

namespace sim {

struct ViewState;
struct ViewValues;
struct LayerState;
struct BlurLook;

/// Blurred backdrops by the view that shows them, kept from one drawing of the same picture to the next. Whoever keeps
/// them takes those out behind which something has changed, and draws these whole.
using Backdrops = std::unordered_map<objc::id, Pattern>;

/// Points by which a view may draw beyond its bounds: a thumb may be higher than its slider, and has a soft edge.
inline constexpr double kOverhang = 18;

/// Where a sheet makes a controller's view show, in its superview's space: smaller and further down while one is above
/// it. Identity for every other view.
cg::AffineTransform SheetTransform(const ViewState &state, const ViewValues &values);

class ViewRenderer {
  public:
    /// Draws to a context on an image surface, whose user space is in points. Blurred backdrops show whatever has been
    /// drawn to that surface before, or what is kept.
    explicit ViewRenderer(_cairo *context, Backdrops *kept = nullptr);
    ViewRenderer(const ViewRenderer &) = delete;
    ViewRenderer &operator=(const ViewRenderer &) = delete;

    /// Draws a view at its place in the context's user space, which is its superview's (for a window, the screen's).
    void DrawInSuperview(ui::View view);

    /// Draws a view with its bounds filling a rectangle, wherever the view itself lies.
    void DrawInRect(ui::View view, cg::Rect rect);

    /// Draws the picture of a view and all in it without its own alpha and without what it shows blurred, in a user
    /// space that is its bounds' space.
    void DrawWithoutBackdrop(ui::View view);

    /// From now on draws only what lies below a view, or only what lies above it. What the view lies in must not clip,
    /// fade or cast a shadow.
    void DrawOnlyBelow(ui::View view);
    void DrawOnlyAbove(ui::View view);

  private:
    /// What of the views is drawn.
    enum class Part { kAll, kBelow, kAbove };
    bool IsLeftOut(ui::View view);
    bool DrawsOwn() const;

    void PlaceForSheet(const ViewState &state, const ViewValues &values);
    void ClipToExtent(const ViewState &state, const ViewValues &values);
    void DrawView(ui::View view, const ViewState &state, const ViewValues &values);
    void DrawWithShadow(ui::View view, const ViewState &state, const ViewValues &values, const LayerState &layer);
    void DrawBody(ui::View view, const ViewState &state, const ViewValues &values, const LayerState &layer);
    void DrawBehindSubviews(ui::View view, const ViewValues &values, const LayerState &layer);
    bool IsSeen(cg::Rect bounds) const;
    void DrawBackdrop(ui::View view, const BlurLook &look, cg::Rect bounds, const LayerState &layer);
    void DrawSubviews(const ViewState &state);
    void PushGroup();

    _cairo *context_;
    Backdrops *kept_; // may be null
    Part part_ = Part::kAll;
    ui::View middle_;            // below or above which is drawn
    bool middleReached_ = false; // in the order of drawing
    bool leavesBackdropOut_ = false;
    std::vector<_cairo_surface *> targets_; // the surface drawn to at last, then the groups open on top of it
};

} // namespace sim
