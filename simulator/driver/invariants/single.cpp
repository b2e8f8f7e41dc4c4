// single CLASS [PART]: no more than one window of the class is shown, or one such part lies in all of them. A hidden
// window may live on while a finger that landed in it stays down.

#include "driver/invariants/invariant.hpp"
#include "driver/invariants/overlay_parts.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <optional>

namespace sim::driver {
namespace {

class Single final : public Invariant {
  public:
    explicit Single(WordReader &words) : window_(words.Name("the class of the window")) {
        if (!words.AtEnd()) {
            part_ = ReadPart(words);
        }
    }

    std::string Broken(const script::Line &) override {
        const std::vector<ui::Window> windows = WindowsOfClass(window_);
        std::ptrdiff_t count =
            std::ranges::count_if(windows, [](ui::Window window) { return !ViewStateOf(window).hidden; });
        if (part_) {
            count = 0;
            for (const ui::Window window : windows) {
                count += std::ranges::count_if(ViewStateOf(window).subviews,
                                               [this](ui::View view) { return IsPart(view, *part_); });
            }
        }
        return count > 1 ? "there are " + std::to_string(count) : "";
    }

  private:
    std::string window_;
    std::optional<Part> part_;
};

} // namespace

std::unique_ptr<Invariant> MakeSingle(WordReader &words) {
    return std::make_unique<Single>(words);
}

} // namespace sim::driver
