#pragma once
// The phone's screen as pixels, kept up to date by drawing only what has changed.

#include "window/moved_picture.hpp"
#include "window/screen_changes.hpp"

#include <optional>

namespace sim::window {

struct PixelSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelSize &, const PixelSize &) = default;
};

/// The size of the screen, as its interface stands, with so many pixels a point.
PixelSize SizeIn(double pixelsPerPoint);

class PhonePicture {
  public:
    /// Draws with so many pixels a point from now on.
    void SetScale(double pixelsPerPoint) {
        scale_ = pixelsPerPoint;
    }
    double scale() const {
        return scale_;
    }

    /// Brings the picture up to date and gives the pixels that were drawn; none when nothing looks different. Whether
    /// code of app, library or system ran since the last time must be said.
    Region Update(bool codeRan);

    /// The picture, an image surface; there after the first update.
    cairo_surface_t *image() const {
        return image_.get();
    }

    /// Whether drawing everything anew gives the same picture.
    bool IsTrue() const;

  private:
    bool ShowMoved(const Moved &moved);

    Surface image_;
    PixelSize size_; // of the image
    ScreenChanges changes_;
    Backdrops backdrops_;
    ui::View mover_; // that moved alone at the last change
    std::optional<MovedPicture> moved_;
    double scale_ = 1;
};

} // namespace sim::window
