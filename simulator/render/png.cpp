#include "render/png.hpp"

#include <cstdint>
#include <cstring>
#include <png.h>
#include <vector>

namespace sim {
namespace {

/// Cairo's colours are multiplied by their alpha, those of a file are not.
png_byte Plain(std::uint32_t component, std::uint32_t alpha) {
    return alpha == 0 ? 0 : static_cast<png_byte>((component * 255 + alpha / 2) / alpha);
}

} // namespace

bool WritePng(cairo_surface_t *image, const std::string &path) {
    cairo_surface_flush(image);
    const bool opaque = cairo_image_surface_get_format(image) == CAIRO_FORMAT_RGB24;
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    file.width = static_cast<png_uint_32>(cairo_image_surface_get_width(image));
    file.height = static_cast<png_uint_32>(cairo_image_surface_get_height(image));
    file.format = opaque ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
    file.flags = PNG_IMAGE_FLAG_FAST;

    std::vector<png_byte> bytes;
    bytes.reserve(PNG_IMAGE_SIZE(file));
    const unsigned char *row = cairo_image_surface_get_data(image);
    for (png_uint_32 y = 0; y < file.height; ++y, row += cairo_image_surface_get_stride(image)) {
        for (png_uint_32 x = 0; x < file.width; ++x) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, row + x * sizeof pixel, sizeof pixel);
            const std::uint32_t alpha = opaque ? 255 : pixel >> 24;
            for (const unsigned shift : {16, 8, 0}) {
                bytes.push_back(Plain(pixel >> shift & 0xff, alpha));
            }
            if (!opaque) {
                bytes.push_back(static_cast<png_byte>(alpha));
            }
        }
    }
    return png_image_write_to_file(&file, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}

} // namespace sim
