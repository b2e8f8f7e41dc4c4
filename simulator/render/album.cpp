#include "render/album.hpp"

#include "render/png.hpp"
#include "runtime/clock.hpp"

#include <cstdio>
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
    album.pictures.push_back({clock::Now(), cairo_image_surface_get_width(image) / scale,
                              cairo_image_surface_get_height(image) / scale, scale, path});
    return true;
}

const std::vector<AlbumPicture> &AlbumPictures() {
    return TheAlbum().pictures;
}

} // namespace sim
