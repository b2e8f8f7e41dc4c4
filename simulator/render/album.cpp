#include "render/album.hpp"

#include "render/png.hpp"
#include "runtime/clock.hpp"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

namespace sim {
namespace {

struct Album {
    std::string directory;
    bool writesPixels = false;
    std::vector<AlbumPicture> pictures;
};

Album &TheAlbum() {
    static Album album;
    return album;
}

/// The list of all pictures, a line each: time, width, height, scale, and the file's name where there is one.
std::filesystem::path ListOf(const Album &album) {
    return std::filesystem::path(album.directory) / "pictures.txt";
}

std::string NameOfFile(const Album &album) {
    char name[32];
    std::snprintf(name, sizeof name, "IMG_%04zu.png", album.pictures.size() + 1);
    return name;
}

bool Write(const Album &album, cairo_surface_t *image, AlbumPicture &picture) {
    std::error_code error;
    std::filesystem::create_directories(album.directory, error);
    std::string name;
    if (album.writesPixels) {
        name = NameOfFile(album);
        picture.path = (std::filesystem::path(album.directory) / name).string();
        if (!WritePng(image, picture.path)) {
            return false;
        }
    }
    std::ofstream list(ListOf(album), std::ios::app);
    list.precision(std::numeric_limits<double>::max_digits10);
    list << picture.time << ' ' << picture.width << ' ' << picture.height << ' ' << picture.scale << ' ' << name
         << '\n';
    list.close();
    return !list.fail();
}

} // namespace

void OpenAlbum(const std::string &directory, bool writesPixels) {
    Album &album = TheAlbum();
    album = {directory, writesPixels, {}};
    std::ifstream list(ListOf(album));
    for (std::string line; std::getline(list, line);) {
        std::istringstream words(line);
        AlbumPicture picture;
        std::string name;
        words >> picture.time >> picture.width >> picture.height >> picture.scale >> name;
        if (!name.empty()) {
            picture.path = (std::filesystem::path(directory) / name).string();
        }
        album.pictures.push_back(picture);
    }
}

bool SaveToAlbum(cairo_surface_t *image, double scale) {
    Album &album = TheAlbum();
    AlbumPicture picture{clock::Now(),
                         cairo_image_surface_get_width(image) / scale,
                         cairo_image_surface_get_height(image) / scale,
                         scale,
                         "",
                         {cairo_surface_reference(image), &cairo_surface_destroy}};
    if (!album.directory.empty() && !Write(album, image, picture)) {
        return false;
    }
    album.pictures.push_back(picture);
    return true;
}

std::optional<std::uint32_t> PixelAt(const AlbumPicture &picture, double x, double y) {
    cairo_surface_t *const pixels = picture.pixels.get();
    if (pixels == nullptr) {
        return std::nullopt;
    }
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
