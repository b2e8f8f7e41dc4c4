#include "window/screen_changes.hpp"

#include "runtime/clock.hpp"
#include "uikit/application.hpp"
#include "uikit/color.hpp"
#include "uikit/effects.hpp"
#include "uikit/fingerprint.hpp"
#include "uikit/presentation.hpp"
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
    std::uint64_t unmoved = 0;        // the same without its place in the picture
    std::uint64_t content = 0;        // of what it draws itself
    cairo_rectangle_int_t shadowed{}; // of a view with a shadow: no part of these can be drawn without the rest
    cairo_rectangle_int_t behind{};   // of a blur: all that comes into it
    cairo_matrix_t matrix{};          // from its bounds' space to the picture's pixels
    cairo_rectangle_int_t whole{};    // what it and all below it cover, also beyond the picture
    std::size_t end = 0;              // where those below it end
    std::size_t parent = 0;           // its superview; itself for a window
    bool isPlain = false;             // what is in it is drawn as if it were not there
    bool movesAlone = false;          // its picture, without what is behind it, can be kept
};

bool ScreenChanges::LooksTheSame(const Seen &a, const Seen &b) {
    return a.view == b.view && a.values == b.values && a.content == b.content;
}

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
        Prints order;
        for (const ui::Window window : std::views::reverse(windows)) {
            View(window, matrix, {screen_, kEverywhere}, order, seen_.size());
        }
        return std::move(seen_);
    }

  private:
    /// Stands for everything that a view's look depends on, with and without its place in the picture.
    struct Prints {
        Fingerprint all;
        Fingerprint unmoved;

        template <class T> void Mix(T part) {
            all.Mix(part);
            unmoved.Mix(part);
        }
    };

    /// What pixels are, of the picture and of a larger one in which nothing is cut off.
    struct Boxes {
        cairo_rectangle_int_t shown{};
        cairo_rectangle_int_t whole{};
    };

    static constexpr cairo_rectangle_int_t kEverywhere{-1'000'000, -1'000'000, 2'000'000, 2'000'000};

    /// Looks at a view in its superview's user space, and at all below it. `above` stands for everything that its look
    /// inherits, and takes the view in: what is drawn after it lies above it. Gives what it all covers.
    Boxes View(ui::View view, const cairo_matrix_t &parent, const Boxes &clip, Prints &above, std::size_t superview) {
        const ViewState &state = ViewStateOf(view);
        const ViewValues values = PresentedValues(view);
        above.Mix(static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(view.pointer)));
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
        const Drawing drawing = DrawingOf(view);
        const std::optional<BlurLook> blur = BlurLookOf(view);
        const bool shadow = layer.shadowOpacity > 0 && layer.shadowRadius >= 0 && !state.clipsToBounds;

        Prints print = above;
        print.all.Mix(matrix.x0);
        print.all.Mix(matrix.y0);
        for (const double number :
             {matrix.xx, matrix.yx, matrix.xy, matrix.yy, values.bounds.size.width, values.bounds.size.height,
              values.alpha, layer.cornerRadius, layer.zPosition, layer.borderWidth}) {
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

        const cairo_rectangle_int_t bounds =
            PixelsAround(matrix, values.bounds, drawing.draw != nullptr ? kOverhang : 0);
        const std::size_t place = seen_.size();
        Seen &seen = seen_.emplace_back();
        seen.view = view.pointer;
        seen.values = print.all.value();
        seen.unmoved = print.unmoved.value();
        seen.matrix = matrix;
        seen.parent = superview;
        if (drawing.draw != nullptr) {
            seen.content = Content(view, drawing, values, LengthOf(matrix));
        }
        const SheetPart sheet =
            state.controller ? SheetPartOf(objc::As<ui::ViewController>(state.controller)) : SheetPart{};
        const bool isInSheet = sheet.isSheet || sheet.pushedBack > 0;
        seen.isPlain = values.alpha == 1 && !state.clipsToBounds && !shadow && !isInSheet;
        seen.movesAlone = !isInSheet && !(blur && (shadow || RgbaOf(values.backgroundColor).a > 0));

        const Boxes inner = state.clipsToBounds ? Boxes{Both(clip.shown, bounds), Both(clip.whole, bounds)} : clip;
        Boxes covered{Both(inner.shown, bounds), Both(inner.whole, bounds)};
        std::multimap<double, ui::View> order;
        for (const objc::Ref<ui::View> &child : state.subviews) {
            const ViewState &childState = ViewStateOf(child);
            const double position = childState.layer ? LayerStateOf(childState.layer).zPosition : 0;
            order.emplace(std::isnan(position) ? 0 : position, child.get());
        }
        Prints inherited = print;
        for (const auto &[position, child] : order) {
            const Boxes below = View(child, matrix, inner, inherited, place);
            covered = {Around(covered.shown, below.shown), Around(covered.whole, below.whole)};
        }
        if (shadow) {
            const double length = LengthOf(matrix);
            const double reach = kBlurReach * layer.shadowRadius * length;
            const auto side = static_cast<int>(std::ceil(reach + std::abs(layer.shadowOffset.width) * length)) + 2;
            const auto up = static_cast<int>(std::ceil(reach + std::abs(layer.shadowOffset.height) * length)) + 2;
            const auto withShadow = [side, up](const cairo_rectangle_int_t &box, const cairo_rectangle_int_t &within) {
                return IsEmpty(box)
                           ? box
                           : Both(within, {box.x - side, box.y - up, box.width + 2 * side, box.height + 2 * up});
            };
            covered = {withShadow(covered.shown, clip.shown), withShadow(covered.whole, clip.whole)};
        }
        Seen &now = seen_[place];
        now.end = seen_.size();
        now.whole = covered.whole;
        now.box = shadow ? covered.shown : Both(inner.shown, bounds);
        now.shadowed = shadow ? covered.shown : cairo_rectangle_int_t{};
        if (blur && !IsEmpty(now.box)) {
            const auto reach = static_cast<int>(std::ceil(kBlurReach * blur->deviation * LengthOf(matrix))) + 1;
            const cairo_rectangle_int_t &box = now.box;
            now.behind = Both(screen_, {box.x - reach, box.y - reach, box.width + 2 * reach, box.height + 2 * reach});
        }
        return covered;
    }

    /// The fingerprint of what a view draws itself, as it draws it now or, when nobody can have changed it, as known.
    std::uint64_t Content(ui::View view, const Drawing &drawing, const ViewValues &values, double pixelsPerPoint) {
        if (const auto known = known_.find(view.pointer); known != known_.end()) {
            return known->second;
        }
        if (drawing.from != nullptr) {
            return drawing.from(view);
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
            drawing.draw(view, context.get());
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
    : unsettledRegion_(cairo_region_create()), seen_(std::make_unique<std::vector<Seen>>()),
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

/// Whether nothing can look different: no code ran, no animation goes on, and the clock shows the same minute.
bool ScreenChanges::Rests(double scale, bool codeRan) {
    const double minute = std::floor(clock::Now() / 60);
    const bool same = std::exchange(minute_, minute) == minute && std::exchange(scale_, scale) == scale;
    return same && !codeRan && !AnimationsRun() && !unsettled_;
}

/// The view that has moved by whole pixels while everything else stayed as it was.
std::optional<Moved> ScreenChanges::FindMoved(const std::vector<Seen> &before) const {
    const std::vector<Seen> &now = *seen_;
    const auto start = static_cast<std::size_t>(std::ranges::mismatch(before, now, &LooksTheSame).in2 - now.begin());
    if (before.size() != now.size() || start == now.size()) {
        return std::nullopt;
    }
    const Seen &root = now[start];
    const double x = root.matrix.x0 - before[start].matrix.x0;
    const double y = root.matrix.y0 - before[start].matrix.y0;
    // Places are sums of fractions, which round otherwise at each place.
    const auto near = [](double a, double b) { return std::abs(a - b) < 1e-6; };
    bool alone = root.end == before[start].end && near(x, std::round(x)) && near(y, std::round(y)) && root.movesAlone;
    for (std::size_t i = start; alone && i < now.size(); ++i) {
        const Seen &was = before[i];
        const Seen &is = now[i];
        const bool moved = is.view == was.view && is.unmoved == was.unmoved && is.content == was.content &&
                           near(is.matrix.x0 - was.matrix.x0, x) && near(is.matrix.y0 - was.matrix.y0, y);
        const bool isBlur = !IsEmpty(is.behind);
        alone = i < root.end ? moved && (i == start || !isBlur) : LooksTheSame(was, is) && !isBlur;
    }
    for (std::size_t i = start; alone && now[i].parent != i; i = now[i].parent) {
        alone = now[now[i].parent].isPlain;
    }
    if (!alone) {
        return std::nullopt;
    }
    Moved moved{ui::View{objc::Object{root.view}}, root.matrix, root.whole, {}, Region(cairo_region_create())};
    Add(moved.region.get(), before[start].whole);
    Add(moved.region.get(), root.whole);
    for (std::size_t i = root.end; i < now.size(); ++i) {
        moved.above.push_back(now[i].box);
    }
    return moved;
}

void ScreenChanges::DrawWhenAtRest(const Moved &moved) {
    unsettled_ = moved.view;
    cairo_region_union(unsettledRegion_.get(), moved.region.get());
}

void ScreenChanges::HasBeenDrawn() {
    unsettledRegion_.reset(cairo_region_create());
}

Changes ScreenChanges::Look(double scale, bool codeRan, Backdrops &backdrops) {
    Changes changes{Region(cairo_region_create()), std::nullopt};
    if (Rests(scale, codeRan)) {
        return changes;
    }
    const std::uint64_t screen = CommonLook(scale);
    const bool everything = std::exchange(screen_, screen) != screen;
    const auto before = std::move(seen_);
    const bool asksAgain = codeRan || everything;
    seen_ = std::make_unique<std::vector<Seen>>(Walk(scratch_.get(), asksAgain ? nullptr : before.get()).Screen(scale));
    const Region &changed = changes.region;
    const ui::View unsettled = std::exchange(unsettled_, {});
    if (everything) {
        const cg::Size size = ScreenSize();
        Add(changed.get(), {0, 0, static_cast<int>(std::lround(size.width * scale)),
                            static_cast<int>(std::lround(size.height * scale))});
        backdrops.clear();
        return changes;
    }
    changes.moved = FindMoved(*before);
    if (changes.moved && unsettled && changes.moved->view != unsettled) {
        changes.moved.reset(); // what another has left behind is to be drawn first
    }
    changes.settles = unsettled && std::ranges::equal(*before, *seen_, &LooksTheSame);
    cairo_region_union(changed.get(), unsettledRegion_.get());
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
        if (isNew || found->second->values != seen.values || found->second->content != seen.content ||
            (unsettled && seen.view == unsettled.pointer)) {
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
    return changes;
}

} // namespace sim::window
