#include "window/screen_changes.hpp"

#include "runtime/clock.hpp"
#include "uikit/application.hpp"
#include "uikit/color.hpp"
#include "uikit/effects.hpp"
#include "uikit/status_bar.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <ranges>
#include <unordered_map>
#include <utility>

namespace sim::window {
namespace {

/// Standard deviations after which nothing of a shadow is seen, and from which nothing comes into a blur.
constexpr double kBlurReach = 3;
/// A larger picture is looked at in a smaller scale: what fills the screen changes in large parts.
constexpr double kMostPixels = 60'000;

/// A number that stands for everything mixed into it.
class Fingerprint {
  public:
    void Mix(std::uint64_t word) {
        value_ = std::rotl((value_ ^ word) * 0x9E3779B97F4A7C15U, 29);
    }
    void Mix(double number) {
        Mix(std::bit_cast<std::uint64_t>(number));
    }
    void Mix(const Rgba &color) {
        for (const double part : {color.r, color.g, color.b, color.a}) {
            Mix(part);
        }
    }
    std::uint64_t value() const {
        return value_;
    }

  private:
    std::uint64_t value_ = 0x243F6A8885A308D3U;
};

cairo_rectangle_int_t Both(const cairo_rectangle_int_t &a, const cairo_rectangle_int_t &b) {
    const int left = std::max(a.x, b.x);
    const int top = std::max(a.y, b.y);
    return {left, top, std::max(std::min(a.x + a.width, b.x + b.width) - left, 0),
            std::max(std::min(a.y + a.height, b.y + b.height) - top, 0)};
}

bool IsEmpty(const cairo_rectangle_int_t &box) {
    return box.width <= 0 || box.height <= 0;
}

/// The smallest rectangle around two; an empty one counts for nothing.
cairo_rectangle_int_t Around(const cairo_rectangle_int_t &a, const cairo_rectangle_int_t &b) {
    if (IsEmpty(a) || IsEmpty(b)) {
        return IsEmpty(a) ? b : a;
    }
    const int left = std::min(a.x, b.x);
    const int top = std::min(a.y, b.y);
    return {left, top, std::max(a.x + a.width, b.x + b.width) - left, std::max(a.y + a.height, b.y + b.height) - top};
}

/// The whole pixels around a rectangle (points of the matrix's user space), with room for soft edges.
cairo_rectangle_int_t PixelsAround(const cairo_matrix_t &matrix, cg::Rect rect, double grow) {
    double left = std::numeric_limits<double>::infinity();
    double top = left;
    double right = -left;
    double bottom = -left;
    for (const double xPart : {-grow, rect.size.width + grow}) {
        for (const double yPart : {-grow, rect.size.height + grow}) {
            double x = rect.origin.x + xPart;
            double y = rect.origin.y + yPart;
            cairo_matrix_transform_point(&matrix, &x, &y);
            left = std::min(left, x);
            top = std::min(top, y);
            right = std::max(right, x);
            bottom = std::max(bottom, y);
        }
    }
    static constexpr double kFarthest = 1e6; // of what is on no screen, pixels
    const auto pixel = [](double place) { return static_cast<int>(std::clamp(place, -kFarthest, kFarthest)); };
    const int x = pixel(std::floor(left)) - 1;
    const int y = pixel(std::floor(top)) - 1;
    return {x, y, pixel(std::ceil(right)) + 1 - x, pixel(std::ceil(bottom)) + 1 - y};
}

double LengthOf(const cairo_matrix_t &matrix) {
    return std::sqrt(std::abs(matrix.xx * matrix.yy - matrix.xy * matrix.yx));
}

/// What the status bar and everything that looks different in the dark depend on.
std::uint64_t CommonLook(double scale) {
    Fingerprint print;
    const cg::Size size = ScreenSize();
    for (const double number : {scale, size.width, size.height, std::floor(clock::Now() / 60)}) {
        print.Mix(number);
    }
    print.Mix(static_cast<std::uint64_t>(IsDarkAppearance()));
    print.Mix(static_cast<std::uint64_t>(PresentStatusBar()));
    return print.value();
}

} // namespace

/// What one view showed.
struct ScreenChanges::Seen {
    objc::id view = nullptr;
    cairo_rectangle_int_t box{};      // its pixels and its shadow's, as far as they can be seen
    std::uint64_t values = 0;         // of everything but what it draws itself
    std::uint64_t content = 0;        // of what it draws itself
    cairo_rectangle_int_t shadowed{}; // of a view with a shadow: no part of these can be drawn without the rest
    cairo_rectangle_int_t behind{};   // of a blur: all that comes into it
};

/// One walk over all views, in the order in which they are drawn.
class ScreenChanges::Walk {
  public:
    Walk(cairo_surface_t *scratch, const std::vector<Seen> *contents) : scratch_(scratch) {
        if (contents != nullptr) {
            for (const Seen &seen : *contents) {
                known_.emplace(seen.view, seen.content);
            }
        }
    }

    std::vector<Seen> Screen(double scale) {
        const cg::Size size = ScreenSize();
        cairo_matrix_t matrix;
        cairo_matrix_init_scale(&matrix, scale, scale);
        screen_ = {0, 0, static_cast<int>(std::lround(size.width * scale)),
                   static_cast<int>(std::lround(size.height * scale))};
        const std::vector<ui::Window> windows = WindowsFrontToBack();
        Fingerprint order;
        for (const ui::Window window : std::views::reverse(windows)) {
            View(window, matrix, screen_, order);
        }
        return std::move(seen_);
    }

  private:
    /// Looks at a view in its superview's user space, and at all below it. `above` stands for everything that its look
    /// inherits, and takes the view in: what is drawn after it lies above it. Gives what it all covers.
    cairo_rectangle_int_t View(ui::View view, const cairo_matrix_t &parent, const cairo_rectangle_int_t &clip,
                               Fingerprint &above) {
        const ViewState &state = ViewStateOf(view);
        const ViewValues values = PresentedValues(view);
        above.Mix(reinterpret_cast<std::uintptr_t>(view.pointer));
        const cg::AffineTransform &t = values.transform;
        const double determinant = t.a * t.d - t.b * t.c;
        if (state.hidden || !(values.alpha > 0) || !(std::abs(determinant) > 1e-9) || !std::isfinite(determinant)) {
            return {};
        }
        cairo_matrix_t matrix = parent;
        cairo_matrix_translate(&matrix, values.center.x, values.center.y);
        const cairo_matrix_t own{t.a, t.b, t.c, t.d, t.tx, t.ty};
        cairo_matrix_multiply(&matrix, &own, &matrix);
        cairo_matrix_translate(&matrix, -values.bounds.origin.x - values.bounds.size.width / 2,
                               -values.bounds.origin.y - values.bounds.size.height / 2);
        static const LayerState plain;
        const LayerState &layer = state.layer ? LayerStateOf(state.layer) : plain;
        const DrawContent draw = DrawingOf(view);
        const std::optional<BlurLook> blur = BlurLookOf(view);
        const bool shadow = layer.shadowOpacity > 0 && layer.shadowRadius >= 0 && !state.clipsToBounds;

        Fingerprint print = above;
        for (const double number :
             {matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0, values.bounds.size.width,
              values.bounds.size.height, values.alpha, layer.cornerRadius, layer.zPosition, layer.borderWidth}) {
            print.Mix(number);
        }
        print.Mix(RgbaOf(values.backgroundColor));
        print.Mix(RgbaOf(layer.borderColor));
        print.Mix(static_cast<std::uint64_t>(state.clipsToBounds));
        if (shadow) {
            for (const double number : {static_cast<double>(layer.shadowOpacity), layer.shadowRadius,
                                        layer.shadowOffset.width, layer.shadowOffset.height}) {
                print.Mix(number);
            }
            print.Mix(RgbaOf(layer.shadowColor));
        }
        if (blur) {
            print.Mix(blur->deviation);
            print.Mix(blur->saturation);
            print.Mix(blur->tint);
        }

        const cairo_rectangle_int_t bounds = PixelsAround(matrix, values.bounds, draw != nullptr ? kOverhang : 0);
        const std::size_t place = seen_.size();
        Seen &seen = seen_.emplace_back();
        seen.view = view.pointer;
        seen.values = print.value();
        if (draw != nullptr) {
            seen.content = Content(view, draw, values, LengthOf(matrix));
        }

        const cairo_rectangle_int_t inner = state.clipsToBounds ? Both(clip, bounds) : clip;
        cairo_rectangle_int_t covered = Both(inner, bounds);
        std::multimap<double, ui::View> order;
        for (const objc::Ref<ui::View> &child : state.subviews) {
            const ViewState &childState = ViewStateOf(child);
            const double position = childState.layer ? LayerStateOf(childState.layer).zPosition : 0;
            order.emplace(std::isnan(position) ? 0 : position, child.get());
        }
        Fingerprint inherited = print;
        for (const auto &[position, child] : order) {
            covered = Around(covered, View(child, matrix, inner, inherited));
        }
        if (shadow && !IsEmpty(covered)) {
            const double length = LengthOf(matrix);
            const double reach = kBlurReach * layer.shadowRadius * length;
            const auto side = static_cast<int>(std::ceil(reach + std::abs(layer.shadowOffset.width) * length)) + 2;
            const auto up = static_cast<int>(std::ceil(reach + std::abs(layer.shadowOffset.height) * length)) + 2;
            covered = Both(clip, {covered.x - side, covered.y - up, covered.width + 2 * side, covered.height + 2 * up});
        }
        Seen &now = seen_[place];
        now.box = shadow ? covered : Both(inner, bounds);
        now.shadowed = shadow ? covered : cairo_rectangle_int_t{};
        if (blur && !IsEmpty(now.box)) {
            const auto reach = static_cast<int>(std::ceil(kBlurReach * blur->deviation * LengthOf(matrix))) + 1;
            const cairo_rectangle_int_t &box = now.box;
            now.behind = Both(screen_, {box.x - reach, box.y - reach, box.width + 2 * reach, box.height + 2 * reach});
        }
        return covered;
    }

    /// The fingerprint of what a view draws itself, as it draws it now or, when nobody can have changed it, as known.
    std::uint64_t Content(ui::View view, DrawContent draw, const ViewValues &values, double pixelsPerPoint) {
        if (const auto known = known_.find(view.pointer); known != known_.end()) {
            return known->second;
        }
        const double width = values.bounds.size.width + 2 * kOverhang;
        const double height = values.bounds.size.height + 2 * kOverhang;
        const double scale = std::min(pixelsPerPoint, std::sqrt(kMostPixels / std::max(width * height, 1.0)));
        const int columns = std::min(2 * static_cast<int>(std::ceil(width * scale / 2)), // two are one word below
                                     cairo_image_surface_get_width(scratch_));
        const int rows =
            std::min(static_cast<int>(std::ceil(height * scale)), cairo_image_surface_get_height(scratch_));
        unsigned char *const pixels = cairo_image_surface_get_data(scratch_);
        const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(scratch_));
        const auto length = static_cast<std::size_t>(columns) * 4;
        cairo_surface_flush(scratch_);
        for (int row = 0; row < rows; ++row) {
            std::memset(pixels + static_cast<std::size_t>(row) * stride, 0, length);
        }
        cairo_surface_mark_dirty(scratch_);
        {
            const Context context(cairo_create(scratch_));
            cairo_rectangle(context.get(), 0, 0, columns, rows);
            cairo_clip(context.get());
            cairo_scale(context.get(), scale, scale);
            cairo_translate(context.get(), kOverhang, kOverhang);
            draw(view, context.get());
        }
        cairo_surface_flush(scratch_);
        Fingerprint print;
        for (int row = 0; row < rows; ++row) {
            const unsigned char *const line = pixels + static_cast<std::size_t>(row) * stride;
            for (std::size_t i = 0; i + 8 <= length; i += 8) {
                std::uint64_t word = 0;
                std::memcpy(&word, line + i, sizeof word);
                if (word != 0) { // most of a text's box is empty
                    print.Mix(word + i);
                }
            }
            print.Mix(static_cast<std::uint64_t>(row));
        }
        return print.value();
    }

    cairo_surface_t *scratch_;
    cairo_rectangle_int_t screen_{};
    std::unordered_map<objc::id, std::uint64_t> known_;
    std::vector<Seen> seen_;
};

ScreenChanges::ScreenChanges()
    : seen_(std::make_unique<std::vector<Seen>>()),
      scratch_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 2048, 1024)) {}

ScreenChanges::~ScreenChanges() = default;

namespace {

void Add(cairo_region_t *region, const cairo_rectangle_int_t &box) {
    cairo_region_union_rectangle(region, &box);
}

bool Touches(const cairo_region_t *region, const cairo_rectangle_int_t &box) {
    return !IsEmpty(box) && cairo_region_contains_rectangle(region, &box) != CAIRO_REGION_OVERLAP_OUT;
}

bool IsCut(const cairo_region_t *region, const cairo_rectangle_int_t &box) {
    return !IsEmpty(box) && cairo_region_contains_rectangle(region, &box) == CAIRO_REGION_OVERLAP_PART;
}

} // namespace

Region ScreenChanges::Look(double scale, bool codeRan, Backdrops &backdrops) {
    const std::uint64_t screen = CommonLook(scale);
    const bool everything = std::exchange(screen_, screen) != screen;
    const auto before = std::move(seen_);
    const bool asksAgain = codeRan || everything;
    seen_ = std::make_unique<std::vector<Seen>>(Walk(scratch_.get(), asksAgain ? nullptr : before.get()).Screen(scale));
    Region changed(cairo_region_create());
    if (everything) {
        const cg::Size size = ScreenSize();
        Add(changed.get(), {0, 0, static_cast<int>(std::lround(size.width * scale)),
                            static_cast<int>(std::lround(size.height * scale))});
        backdrops.clear();
        return changed;
    }
    std::unordered_map<objc::id, const Seen *> old;
    for (const Seen &seen : *before) {
        old.emplace(seen.view, &seen);
    }
    for (const Seen &seen : *seen_) {
        old.erase(seen.view);
    }
    for (const auto &[view, gone] : old) {
        Add(changed.get(), gone->box);
        backdrops.erase(view);
    }
    old.clear();
    for (const Seen &seen : *before) {
        old.emplace(seen.view, &seen);
    }
    // From the back to the front: what has changed so far lies behind the view.
    for (const Seen &seen : *seen_) {
        const auto found = old.find(seen.view);
        const bool isNew = found == old.end();
        if (isNew || found->second->values != seen.values || found->second->content != seen.content) {
            Add(changed.get(), isNew ? seen.box : found->second->box);
            Add(changed.get(), seen.box);
            backdrops.erase(seen.view);
        }
        const bool isBlur = !IsEmpty(seen.behind);
        if (isBlur && (Touches(changed.get(), seen.behind) || !backdrops.contains(seen.view))) {
            backdrops.erase(seen.view);
            Add(changed.get(), seen.behind);
        }
    }
    for (bool grew = cairo_region_is_empty(changed.get()) == 0; grew;) {
        grew = false;
        for (const Seen &seen : *seen_) {
            if (IsCut(changed.get(), seen.shadowed)) {
                Add(changed.get(), seen.shadowed);
                grew = true;
            }
        }
    }
    return changed;
}

} // namespace sim::window
