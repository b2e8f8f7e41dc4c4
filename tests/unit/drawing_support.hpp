#pragma once
// What tests of drawing share: the phone's classes registered, views made and drawn, pixels read.

#include "apple/uikit/font.hpp"
#include "apple/uikit/view.hpp"
#include "render/surface.hpp"
#include "runtime/utf16.hpp"
#include "runtime_support.hpp"
#include "uikit/color.hpp"
#include "uikit/uikit.hpp"
#include "uikit/view_renderer.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace corvel::test {

using sim::StringOf;

inline constexpr double kUnlimited = std::numeric_limits<double>::max();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A phone in the light appearance.
class Drawing : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (objc_getClass("UIView") == nullptr) {
            sim::RegisterUIKit();
        }
    }
    void TearDown() override {
        sim::SetDarkAppearance(false);
    }

  private:
    Pool pool_;
};

inline ui::Color Rgb(std::uint32_t hex) {
    return ui::Color::colorWithRed((hex >> 16) / 255.0, (hex >> 8 & 0xFF) / 255.0, (hex & 0xFF) / 255.0, 1);
}

/// 0xAARRGGBB, not premultiplied.
inline std::uint32_t Argb(ui::Color color) {
    const sim::Rgba c = sim::RgbaOf(color);
    const auto byte = [](double value) { return static_cast<std::uint32_t>(std::lround(value * 255)); };
    return byte(c.a) << 24 | byte(c.r) << 16 | byte(c.g) << 8 | byte(c.b);
}

inline double LineHeight(double size) {
    return objc::Send<"lineHeight", double>(ui::Font::systemFontOfSize(size));
}

inline objc::Ref<ui::View> Box(cg::Rect frame, ui::Color color) {
    auto box = ui::MakeView<ui::View>(frame);
    box->setBackgroundColor(color);
    return box;
}

/// A view drawn on clear ground, one pixel a point unless said otherwise.
class Picture {
  public:
    Picture(ui::View view, int width, int height, double scale = 1)
        : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)) {
        const sim::Context context(cairo_create(surface_.get()));
        cairo_scale(context.get(), scale, scale);
        sim::ViewRenderer(context.get()).DrawInSuperview(view);
        EXPECT_EQ(cairo_status(context.get()), CAIRO_STATUS_SUCCESS);
        cairo_surface_flush(surface_.get());
    }

    /// 0xAARRGGBB, premultiplied.
    std::uint32_t At(int x, int y) const {
        const unsigned char *data = cairo_image_surface_get_data(surface_.get());
        const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface_.get());
        return reinterpret_cast<const std::uint32_t *>(data + y * stride)[x];
    }
    int AlphaAt(int x, int y) const {
        return static_cast<int>(At(x, y) >> 24);
    }

    /// The smallest rectangle around all pixels for which the test holds; empty when there is none.
    template <class Test> sim::PixelRect Where(Test test) const {
        int left = Width();
        int right = 0;
        int top = Height();
        int bottom = 0;
        for (int y = 0; y < Height(); ++y) {
            for (int x = 0; x < Width(); ++x) {
                if (test(At(x, y))) {
                    left = std::min(left, x);
                    right = std::max(right, x + 1);
                    top = std::min(top, y);
                    bottom = std::max(bottom, y + 1);
                }
            }
        }
        return {left, top, right - left, bottom - top};
    }
    sim::PixelRect Painted() const {
        return Where([](std::uint32_t pixel) { return pixel >> 24 > 8; });
    }
    int Width() const {
        return cairo_image_surface_get_width(surface_.get());
    }
    int Height() const {
        return cairo_image_surface_get_height(surface_.get());
    }

  private:
    sim::Surface surface_;
};

inline constexpr std::uint32_t kRed = 0xFFFF0000;
inline constexpr std::uint32_t kGreen = 0xFF00FF00;
inline constexpr std::uint32_t kBlue = 0xFF0000FF;

} // namespace corvel::test
