#include "window/phone_picture.hpp"

#include "uikit/application.hpp"
#include "uikit/screenshot.hpp"

#include <cmath>
#include <cstdlib>
#include <utility>

namespace sim::window {
namespace {

Surface MakeImage(PixelSize size) {
    return Surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height));
}

void Draw(cairo_surface_t *image, double scale, const cairo_region_t *part, Backdrops *kept) {
    const Context context(cairo_create(image));
    for (int i = 0; part != nullptr && i < cairo_region_num_rectangles(part); ++i) {
        cairo_rectangle_int_t box;
        cairo_region_get_rectangle(part, i, &box);
        cairo_rectangle(context.get(), box.x, box.y, box.width, box.height);
    }
    if (part != nullptr) {
        cairo_clip(context.get());
    }
    cairo_scale(context.get(), scale, scale);
    DrawScreen(context.get(), kept);
}

} // namespace

PixelSize SizeIn(double pixelsPerPoint) {
    const cg::Size size = ScreenSize();
    return {static_cast<int>(std::lround(size.width * pixelsPerPoint)),
            static_cast<int>(std::lround(size.height * pixelsPerPoint))};
}

/// Shows a view that has moved alone for the second time in a row without drawing it. The first time the screen is
/// drawn: taking it apart costs as much.
bool PhonePicture::ShowMoved(const Moved &moved) {
    const cairo_rectangle_int_t all{0, 0, size_.width, size_.height};
    cairo_region_intersect_rectangle(moved.region.get(), &all);
    if (moved_ && !moved_->IsOf(moved.view)) {
        moved_.reset();
    }
    if (std::exchange(mover_, moved.view) != moved.view) {
        return false;
    }
    if (!moved_) {
        moved_.emplace(moved, image_.get(), scale_);
    }
    moved_->Show(image_.get(), moved);
    return true;
}

Region PhonePicture::Update(bool codeRan) {
    Changes changes = changes_.Look(scale_, codeRan, backdrops_);
    if (cairo_region_is_empty(changes.region.get()) != 0) {
        return std::move(changes.region);
    }
    if (changes.moved) {
        if (ShowMoved(*changes.moved)) {
            changes_.DrawWhenAtRest(*changes.moved);
            return std::move(changes.moved->region);
        }
    } else if (!changes.settles) {
        moved_.reset();
        mover_ = {};
    }
    if (const PixelSize size = SizeIn(scale_); size != size_) {
        image_ = MakeImage(size);
        size_ = size;
    }
    Draw(image_.get(), scale_, changes.region.get(), &backdrops_);
    changes_.HasBeenDrawn();
    cairo_surface_flush(image_.get());
    return std::move(changes.region);
}

bool PhonePicture::IsTrue() const {
    // A blur or a shadow that was cut differs by a rounding here and there, and a soft edge by more in a few pixels
    // where a changed part ends. What nobody drew anew differs by far, or in many pixels.
    constexpr int kRounding = 2;
    constexpr int kFar = 16;
    constexpr int kFew = 48;
    const Surface fresh = MakeImage(size_);
    Draw(fresh.get(), scale_, nullptr, nullptr);
    cairo_surface_flush(fresh.get());
    const int stride = cairo_image_surface_get_stride(fresh.get());
    const auto size =
        static_cast<std::size_t>(stride) * static_cast<std::size_t>(cairo_image_surface_get_height(fresh.get()));
    const unsigned char *const mine = cairo_image_surface_get_data(image_.get());
    const unsigned char *const whole = cairo_image_surface_get_data(fresh.get());
    int roundings = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const int difference = i % 4 != 3 ? std::abs(mine[i] - whole[i]) : 0;
        roundings += difference > kRounding ? 1 : 0;
        if (difference > kFar || roundings > kFew) {
            return false;
        }
    }
    return true;
}

} // namespace sim::window
