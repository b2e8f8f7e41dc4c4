#pragma once
// The simulated phone's photo album.

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
};

/// Where pictures are kept, a directory made when the first one is saved. Without one they are only recorded.
void SetAlbumDirectory(const std::string &directory);

/// Saves an image surface; false when the file cannot be written, and then nothing is recorded.
bool SaveToAlbum(_cairo_surface *image, double scale);

/// All pictures saved since launch, the oldest first.
const std::vector<AlbumPicture> &AlbumPictures();

} // namespace sim
