#pragma once
// A view that moves, taken apart: what lies below it, its own picture, what lies above it. Put together anew, the
// screen shows it at another place without anything being drawn.

#include "window/screen_changes.hpp"

namespace sim {
struct BlurLook;
} // namespace sim

namespace sim::window {

class MovedPicture {
  public:
    /// Takes the screen apart as it looks now. Costs about as much as drawing it.
    MovedPicture(const Moved &moved, cairo_surface_t *image, double scale);

    /// Whether it is of this view. What has changed since it was made but the view's place is for the caller to know.
    bool IsOf(ui::View view) const {
        return view_ == view;
    }

    /// Brings the picture of the screen up to date where the view was and is.
    void Show(cairo_surface_t *image, const Moved &moved);

  private:
    /// One of the box that the blurred part does not fill, and how much of it (of 255) it covers.
    struct EdgePixel {
        int x;
        int y;
        unsigned char cover;
    };

    void DrawBelow(cairo_surface_t *image);
    void DrawAbove(cairo_surface_t *image);
    void DrawContent(const Moved &moved);
    void DrawBlurred(const Moved &moved, const BlurLook &look);
    void CutEdge();
    cairo_surface_t *OverBackdrop(int x, int y);

    ui::View view_;
    double scale_;
    double alpha_ = 1;
    double x_; // where it was in the picture
    double y_;
    cairo_rectangle_int_t box_; // what it covered
    Surface below_;
    Surface above_;
    Surface content_; // of the box, without what is behind it
    Surface blurred_; // all that lies below, as the view shows it; none for one that shows nothing blurred
    Surface joined_;  // the content over the blurred part
    std::vector<EdgePixel> edge_;
};

} // namespace sim::window
