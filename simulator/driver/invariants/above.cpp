// above CLASS PART PART: in the window, the first part lies above the second wherever both are.

#include "driver/invariants/invariant.hpp"
#include "driver/invariants/overlay_parts.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

class Above final : public Invariant {
  public:
    explicit Above(WordReader &words)
        : window_(words.Name("the class of the window")), upper_(ReadPart(words)), lower_(ReadPart(words)) {}

    std::string Broken(const script::Line &) override {
        for (const ui::Window window : WindowsOfClass(window_)) {
            const auto &views = ViewStateOf(window).subviews; // back to front
            const auto upper = std::ranges::find_if(views, [this](ui::View view) { return IsPart(view, upper_); });
            if (std::any_of(upper, views.end(), [this](ui::View view) { return IsPart(view, lower_); })) {
                return "it lies below";
            }
        }
        return "";
    }

  private:
    std::string window_;
    Part upper_;
    Part lower_;
};

} // namespace

std::unique_ptr<Invariant> MakeAbove(WordReader &words) {
    return std::make_unique<Above>(words);
}

} // namespace sim::driver
