#include "render/album.hpp"

#include "render/png.hpp"
#include "runtime/clock.hpp"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace sim {
namespace {

struct Album {
    std::string directory;
    std::vector<AlbumPicture> pictures;
};

Album &TheAlbum() {
    static Album album;
    return album;
}

/// The next file name that is not taken: earlier runs may have saved to the same directory.
std::string FreePath(const std::string &directory) {
    for (unsigned number = 1;; ++number) {
        char name[32];
        std::snprintf(name, sizeof name, "IMG_%04u.png", number);
        const std::filesystem::path path = std::filesystem::path(directory) / name;
        std::error_code error;
        if (!std::filesystem::exists(path, error)) {
            return path.string();
        }
    }
}

} // namespace

void SetAlbumDirectory(const std::string &directory) {
    TheAlbum().directory = directory;
}

bool SaveToAlbum(cairo_surface_t *image, double scale) {
    Album &album = TheAlbum();
    std::string path;
    if (!album.directory.empty()) {
        std::error_code error;
        std::filesystem::create_directories(album.directory, error);
        path = FreePath(album.directory);
        if (!WritePng(image, path)) {
            return false;
        }
    }
    album.pictures.push_back({clock::Now(),
                              cairo_image_surface_get_width(image) / scale,
                              cairo_image_surface_get_height(image) / scale,
                              scale,
                              path,
                              {cairo_surface_reference(image), &cairo_surface_destroy}});
    return true;
}

std::optional<std::uint32_t> PixelAt(const AlbumPicture &picture, double x, double y) {
    cairo_surface_t *const pixels = picture.pixels.get();
    const int column = static_cast<int>(std::floor(x * picture.scale));
    const int row = static_cast<int>(std::floor(y * picture.scale));
    if (column < 0 || row < 0 || column >= cairo_image_surface_get_width(pixels) ||
        row >= cairo_image_surface_get_height(pixels)) {
        return std::nullopt;
    }
    const unsigned char *line =
        cairo_image_surface_get_data(pixels) + std::ptrdiff_t{row} * cairo_image_surface_get_stride(pixels);
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, line + std::ptrdiff_t{column} * 4, sizeof pixel);
    const bool opaque = cairo_image_surface_get_format(pixels) == CAIRO_FORMAT_RGB24;
    return opaque ? pixel | 0xFF000000 : pixel;
}

const std::vector<AlbumPicture> &AlbumPictures() {
    return TheAlbum().pictures;
}

} // namespace sim
