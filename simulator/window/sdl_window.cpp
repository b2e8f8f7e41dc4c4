#include "window/sdl_window.hpp"

#include <SDL.h>
#include <cstdlib>
#include <vector>

namespace sim::window {
namespace {

bool IsSet(const char *name) {
    const char *const value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

} // namespace

SdlWindow::SdlWindow() {
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0"); // without a GPU a copy to the screen is the quickest
    SDL_SetHint(SDL_HINT_IME_SHOW_UI, "1");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // Without a desktop SDL would draw where nobody sees it, or take the console over.
    const bool hasWayland = IsSet("WAYLAND_DISPLAY");
    if (!hasWayland && !IsSet("DISPLAY")) {
        throw NoDisplay("no display: neither DISPLAY nor WAYLAND_DISPLAY is set");
    }
    if (!hasWayland) {
        SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11");
    }
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        throw NoDisplay(std::string("no display: ") + SDL_GetError());
    }
    SDL_StopTextInput();
}

SdlWindow::~SdlWindow() {
    SDL_FreeSurface(pixels_);
    if (window_ != nullptr) {
        SDL_DestroyWindow(window_);
    }
    SDL_Quit();
}

PixelRect SdlWindow::Room() {
    SDL_Rect room{0, 0, 1280, 960};
    SDL_GetDisplayUsableBounds(0, &room);
    return {room.x, room.y, room.w, room.h};
}

void SdlWindow::Open(const std::string &title, int width, int height, int leastWidth, int leastHeight) {
    window_ = SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width, height,
                               SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
    if (window_ == nullptr || SDL_GetWindowSurface(window_) == nullptr) {
        throw NoDisplay(std::string("no window: ") + SDL_GetError());
    }
    SDL_SetWindowMinimumSize(window_, leastWidth, leastHeight);
    FollowSize();
}

void SdlWindow::AskFor(int width, int height) {
    SDL_SetWindowSize(window_, width, height);
}

bool SdlWindow::FollowSize() {
    const SDL_Surface *const screen = SDL_GetWindowSurface(window_);
    if (screen == nullptr || (image_ && screen->w == width() && screen->h == height())) {
        return false;
    }
    SDL_FreeSurface(pixels_);
    image_.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24, screen->w, screen->h));
    pixels_ = SDL_CreateRGBSurfaceWithFormatFrom(cairo_image_surface_get_data(image_.get()), screen->w, screen->h, 32,
                                                 cairo_image_surface_get_stride(image_.get()), SDL_PIXELFORMAT_RGB888);
    return true;
}

void SdlWindow::Show(std::span<const PixelRect> parts) {
    SDL_Surface *const screen = SDL_GetWindowSurface(window_);
    if (screen == nullptr || screen->w != width() || screen->h != height()) {
        return; // another size has come: the picture will follow
    }
    cairo_surface_flush(image_.get());
    std::vector<SDL_Rect> shown;
    for (const PixelRect &part : parts) {
        SDL_Rect from{part.x, part.y, part.width, part.height};
        const SDL_Rect all{0, 0, screen->w, screen->h};
        if (SDL_IntersectRect(&from, &all, &from) == SDL_TRUE) {
            SDL_Rect to = from;
            SDL_BlitSurface(pixels_, &from, screen, &to);
            shown.push_back(from);
        }
    }
    SDL_UpdateWindowSurfaceRects(window_, shown.data(), static_cast<int>(shown.size()));
}

} // namespace sim::window
