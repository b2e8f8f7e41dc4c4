// through CLASS: where nothing that takes touches lies in the window directly, fingers reach the app below it.

#include "driver/invariants/invariant.hpp"
#include "driver/invariants/overlay_parts.hpp"
#include "driver/view_properties.hpp"
#include "uikit/application.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

constexpr int kColumns = 4;
constexpr int kRows = 6;

/// What can take a touch, whatever it holds.
bool TakesTouches(ui::View view) {
    constexpr double kTouchable = 0.01; // fainter views take none
    const ViewState &state = ViewStateOf(view);
    return !state.hidden && state.userInteractionEnabled && state.model.alpha >= kTouchable;
}

bool Covers(ui::View view, cg::Point point) {
    return Contains(view.bounds(), FromScreen(view, point));
}

class Through final : public Invariant {
  public:
    explicit Through(WordReader &words) : className_(words.Name("the class of the window")) {}

    std::string Broken(const script::Line &) override {
        const std::vector<ui::Window> windows = WindowsOfClass(className_);
        for (const cg::Point point : Places(windows)) {
            const ui::View hit = HitTestScreen(point); // first: asked, the library may put its views in order
            if (IsTaken(point, windows)) {
                continue;
            }
            if (hit != HitWithout(windows, point)) {
                Fact wrong{Bare("a finger at"), Bare(point.x), Bare(point.y), Bare("touches")};
                script::Append(wrong, DescribeView(hit));
                return script::Render(wrong);
            }
        }
        return "";
    }

  private:
    /// A grid over the screen, and the places right outside the corners of what the windows hold.
    static std::vector<cg::Point> Places(const std::vector<ui::Window> &windows) {
        std::vector<cg::Point> places;
        const cg::Size size = ScreenSize();
        for (int i = 0; i < kColumns * kRows; ++i) {
            const int column = i % kColumns;
            const int row = i / kColumns;
            places.push_back({size.width * (column + 0.5) / kColumns, size.height * (row + 0.5) / kRows});
        }
        for (const ui::Window window : windows) {
            for (const objc::Ref<ui::View> &view : ViewStateOf(window).subviews) {
                const cg::Rect frame = Grown(view->frame(), 1);
                const cg::Point end{frame.origin.x + frame.size.width, frame.origin.y + frame.size.height};
                places.insert(places.end(), {frame.origin, end, {frame.origin.x, end.y}, {end.x, frame.origin.y}});
            }
        }
        std::erase_if(places, [size](cg::Point place) { return !Contains({{}, size}, place); });
        return places;
    }

    /// Whether something in one of the windows, save its root controller's bare view, may take a touch there.
    static bool IsTaken(cg::Point point, const std::vector<ui::Window> &windows) {
        return std::ranges::any_of(windows, [point](ui::Window window) {
            return std::ranges::any_of(ViewStateOf(window).subviews, [&](const objc::Ref<ui::View> &view) {
                return view.get() != window.rootViewController().view() && TakesTouches(view) && Covers(view, point);
            });
        });
    }

    /// What a finger there would touch if the windows were not.
    static ui::View HitWithout(const std::vector<ui::Window> &windows, cg::Point point) {
        for (const ui::Window window : WindowsFrontToBack()) {
            if (std::ranges::find(windows, window) == windows.end()) {
                if (const ui::View hit = window.hitTest(FromScreen(window, point), nullptr)) {
                    return hit;
                }
            }
        }
        return {};
    }

    std::string className_;
};

} // namespace

std::unique_ptr<Invariant> MakeThrough(WordReader &words) {
    return std::make_unique<Through>(words);
}

} // namespace sim::driver
