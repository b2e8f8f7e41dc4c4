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
    double time;      // of the virtual clock, seconds since the launch of the process that saved it
    double width;     // points
    double height;    // points
    double scale;     // pixels a point
    std::string path; // of the PNG file; empty when none was written
    std::shared_ptr<_cairo_surface> pixels; // of pictures that this process saved
};

/// Opens the album of a directory, which is made when the first picture is saved: it has the pictures that earlier
/// processes saved there. An album that nobody can look at need not write their pixels, only that they are there.
void OpenAlbum(const std::string &directory, bool writesPixels);

/// Saves an image surface; false when a file cannot be written, and then nothing is recorded. Without an open album
/// the picture lasts as long as the process.
bool SaveToAlbum(_cairo_surface *image, double scale);

/// A pixel of a picture (0xAARRGGBB, premultiplied) at a place (points from its corner); nothing outside it,
/// nor of a picture that an earlier process saved.
std::optional<std::uint32_t> PixelAt(const AlbumPicture &picture, double x, double y);

/// All pictures of the album, the oldest first.
const std::vector<AlbumPicture> &AlbumPictures();

} // namespace sim
