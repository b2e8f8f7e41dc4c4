#pragma once
// The window on the computer's screen: a picture in memory, of which changed parts are shown.

#include "render/surface.hpp"

#include <span>
#include <stdexcept>
#include <string>

struct SDL_Window;
struct SDL_Surface;

namespace sim::window {

/// No window can be opened: there is no display.
class NoDisplay : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

class SdlWindow {
  public:
    /// Connects to the display; throws NoDisplay. The locale of the environment counts, for input methods.
    SdlWindow();
    SdlWindow(const SdlWindow &) = delete;
    SdlWindow &operator=(const SdlWindow &) = delete;
    ~SdlWindow();

    /// The pixels that a window may have without leaving the screen.
    static PixelRect Room();

    /// Opens the window; throws NoDisplay. Once.
    void Open(const std::string &title, int width, int height, int leastWidth, int leastHeight);

    /// Asks for another size, and follows the size that the window has got. Its picture is another one then: true.
    void AskFor(int width, int height);
    bool FollowSize();

    int width() const {
        return cairo_image_surface_get_width(image_.get());
    }
    int height() const {
        return cairo_image_surface_get_height(image_.get());
    }

    /// The picture to draw into, 32 bits a pixel.
    cairo_surface_t *image() const {
        return image_.get();
    }

    /// Shows these parts of the picture.
    void Show(std::span<const PixelRect> parts);

  private:
    SDL_Window *window_ = nullptr;
    Surface image_;
    SDL_Surface *pixels_ = nullptr; // the picture's, as SDL sees them
};

} // namespace sim::window
