// What a frame of the window costs, beside the cairo calls that copy ready pixels: with the grid over a live room and
// nothing changed, and with the grid drawn along by a finger. Takes the simulator's own options; run under callgrind
// with --instr-atstart=no, it leaves one file a count.

#include "library/measure.hpp"

#include "driver/power.hpp"
#include "driver/runner.hpp"
#include "runtime/autorelease.hpp"
#include "script/lexer.hpp"
#include "window/phone_picture.hpp"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <unistd.h>

namespace {

using namespace sim;

constexpr cairo_rectangle_int_t kNowhere{};

void Play(driver::Session &session, const std::string &lines) {
    for (const script::Line &line : script::Lex(lines, "frame")) {
        driver::Play(session, line);
    }
}

cairo_rectangle_int_t ExtentsOf(const cairo_region_t *region) {
    cairo_rectangle_int_t extents;
    cairo_region_get_extents(region, &extents);
    return extents;
}

Surface ImageOf(cairo_format_t format, PixelRect size) {
    return Surface(cairo_image_surface_create(format, size.width, size.height));
}

/// The phone's picture, and the window's image that it is copied to, as the window does it in each frame.
class Window {
  public:
    explicit Window(double scale) {
        picture_.SetScale(scale);
    }

    /// What was copied, all rectangles in one.
    cairo_rectangle_int_t Frame(bool codeRan) {
        const window::Region changed = picture_.Update(codeRan);
        if (cairo_region_is_empty(changed.get()) != 0) {
            return kNowhere;
        }
        if (!image_) {
            const auto [width, height] = window::SizeIn(picture_.scale());
            image_ = ImageOf(CAIRO_FORMAT_RGB24, {0, 0, width, height});
        }
        const Context context(cairo_create(image_.get()));
        for (int i = 0; i < cairo_region_num_rectangles(changed.get()); ++i) {
            cairo_rectangle_int_t box;
            cairo_region_get_rectangle(changed.get(), i, &box);
            cairo_rectangle(context.get(), box.x, box.y, box.width, box.height);
        }
        cairo_clip(context.get());
        cairo_set_source_surface(context.get(), picture_.image(), 0, 0);
        cairo_paint(context.get());
        return ExtentsOf(changed.get());
    }

    window::PhonePicture &picture() {
        return picture_;
    }
    cairo_surface_t *image() const {
        return image_.get();
    }

  private:
    window::PhonePicture picture_;
    Surface image_;
};

/// Ready pixels of the same sizes, filled with something: the room, the same blurred, and the grid without what is
/// behind it.
class Blits {
  public:
    explicit Blits(cairo_surface_t *screen, cairo_rectangle_int_t panel)
        : size_{0, 0, cairo_image_surface_get_width(screen), cairo_image_surface_get_height(screen)},
          room_(ImageOf(CAIRO_FORMAT_RGB24, size_)), blurred_(ImageOf(CAIRO_FORMAT_RGB24, size_)),
          grid_(ImageOf(CAIRO_FORMAT_ARGB32, {0, 0, panel.width, panel.height})),
          picture_(ImageOf(CAIRO_FORMAT_RGB24, size_)), image_(ImageOf(CAIRO_FORMAT_RGB24, size_)) {
        for (cairo_surface_t *surface : {room_.get(), blurred_.get()}) {
            const Context context(cairo_create(surface));
            cairo_set_source_surface(context.get(), screen, 0, 0);
            cairo_paint(context.get());
        }
        const Context context(cairo_create(grid_.get()));
        cairo_set_source_rgba(context.get(), 0, 0, 0, kGridAlpha);
        cairo_paint(context.get());
    }

    /// The least for a panel that moves: the room where it was and is, the blurred room and the grid where it is, and
    /// all of that to the window.
    void Move(cairo_rectangle_int_t changed, cairo_rectangle_int_t panel) const {
        {
            const Context context(cairo_create(picture_.get()));
            Clip(context.get(), changed);
            cairo_set_source_surface(context.get(), room_.get(), 0, 0);
            cairo_paint(context.get());
            Clip(context.get(), panel);
            cairo_set_source_surface(context.get(), blurred_.get(), 0, 0);
            cairo_paint_with_alpha(context.get(), kPanelAlpha);
            cairo_set_source_surface(context.get(), grid_.get(), panel.x, panel.y);
            cairo_paint_with_alpha(context.get(), kPanelAlpha);
        }
        Show(changed);
    }

    /// The least for a frame that copies the ready picture to the window.
    void Show(cairo_rectangle_int_t changed) const {
        const Context context(cairo_create(image_.get()));
        Clip(context.get(), changed);
        cairo_set_source_surface(context.get(), picture_.get(), 0, 0);
        cairo_paint(context.get());
    }

    PixelRect size() const {
        return size_;
    }

  private:
    static constexpr double kPanelAlpha = 0.9; // of the grid, as it is set unless the user sets it otherwise
    static constexpr double kGridAlpha = 0.5;

    static void Clip(cairo_t *context, cairo_rectangle_int_t box) {
        cairo_rectangle(context, box.x, box.y, box.width, box.height);
        cairo_clip(context);
    }

    PixelRect size_;
    Surface room_;
    Surface blurred_;
    Surface grid_;
    Surface picture_;
    Surface image_;
};

void Expect(bool holds, const char *what) {
    if (!holds) {
        std::fprintf(stderr, "corvel-bench-frame: %s\n", what);
        std::exit(1);
    }
}

/// Both counts with so many pixels a point.
void Measure(driver::Session &session, const std::string &name, double scale, int &way) {
    Window window(scale);
    const auto frame = [&](bool codeRan) {
        cairo_rectangle_int_t changed{};
        driver::AsHost([&] { changed = window.Frame(codeRan); });
        return changed;
    };
    const auto move = [&] {
        ++way;
        Play(session, "touch move at " + std::to_string(215 + way) + " " + std::to_string(170 + way));
    };
    cairo_rectangle_int_t changed = frame(true);
    Expect(changed.width > 0, "the first frame draws nothing");
    for (int i = 0; i < 4; ++i) { // from the second on the grid is shown without being drawn
        move();
        changed = frame(true);
    }
    const cairo_rectangle_int_t panel{changed.x + static_cast<int>(scale), changed.y + static_cast<int>(scale),
                                      changed.width - static_cast<int>(scale),
                                      changed.height - static_cast<int>(scale)};
    const Blits blits(window.image(), panel);
    blits.Move(changed, panel);

    move();
    bench::Count("frame-moving" + name + "/work", [&] { changed = frame(true); });
    Expect(changed.width > 0 && changed.width < 320 * scale, "not the panel alone was drawn");
    bench::Count("frame-moving" + name + "/floor", [&] { blits.Move(changed, panel); });
    Expect(window.picture().IsTrue(), "the moving panel looks wrong");

    frame(false); // draws anew what was shown without being drawn
    Expect(frame(false).width == 0, "frames are drawn though nothing changes");
    bench::Count("frame-resting" + name + "/work", [&] { changed = frame(false); });
    const auto [x, y, width, height] = blits.size();
    bench::Count("frame-resting" + name + "/floor", [&] { blits.Show({x, y, width, height}); });
    Expect(window.picture().IsTrue(), "the resting screen looks wrong");
}

int Run(int count, char **words) {
    driver::Session session;
    session.options = driver::ReadOptions(count, words);
    driver::SwitchOn(session);
    const AutoreleasePool pool;
    Play(session, "wait 3\nhost enter \"7311\"\ntap \"弹\"\nwait 1\ntouch down at 205 160\ntouch move at 215 170\n");
    int way = 0;
    Measure(session, "", 1, way);
    Measure(session, "-2x", 2, way);
    return 0;
}

} // namespace

int main(int count, char **words) {
    int status = 2;
    try {
        status = Run(count, words);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "corvel-bench-frame: %s\n", error.what());
    }
    std::fflush(nullptr);
    _exit(status); // the phone is switched off
}
