#pragma once
// The simulated phone's photo album.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct _cairo_surface;

namespace sim {

/// One saved picture.
struct AlbumPicture {
    double time;      // of the virtual clock, seconds
    double width;     // points
    double height;    // points
    double scale;     // pixels a point
    std::string path; // of the PNG file; empty when the album has no directory
    std::shared_ptr<_cairo_surface> pixels;
};

/// Where pictures are kept, a directory made when the first one is saved. Without one they are only recorded.
void SetAlbumDirectory(const std::string &directory);

/// Saves an image surface; false when the file cannot be written, and then nothing is recorded.
bool SaveToAlbum(_cairo_surface *image, double scale);

/// A pixel of a picture (0xAARRGGBB, premultiplied) at a place (points from its corner); nothing outside it.
std::optional<std::uint32_t> PixelAt(const AlbumPicture &picture, double x, double y);

/// All pictures saved since launch, the oldest first.
const std::vector<AlbumPicture> &AlbumPictures();

} // namespace sim
