// released CLASS: whatever part has left the window, and the window itself once it is hidden for good, soon goes. What
// still refers to a view that nobody sees would keep it.

#include "driver/invariants/invariant.hpp"
#include "driver/invariants/overlay_parts.hpp"
#include "driver/view_properties.hpp"
#include "runtime/clock.hpp"
#include "script/values.hpp"
#include "uikit/touch.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <map>
#include <optional>

namespace sim::driver {
namespace {

constexpr double kSoon = 3; // seconds; animations and what waits for them are over by then
constexpr TouchId kLastFinger = 9;

bool IsAnyFingerDown() {
    for (TouchId finger = 0; finger <= kLastFinger; ++finger) {
        if (touch::IsDown(finger)) {
            return true;
        }
    }
    return false;
}

class Released final : public Invariant {
  public:
    explicit Released(WordReader &words) : window_(words.Name("the class of the window")) {}

    std::string Broken(const script::Line &) override {
        for (const ui::Window window : WindowsOfClass(window_)) {
            Follow(window);
            for (const objc::Ref<ui::View> &view : ViewStateOf(window).subviews) {
                if (IsKind(view, "UIVisualEffectView") || IsKind(view, "UIButton")) {
                    Follow(view);
                }
            }
        }
        std::erase_if(followed_, [](const auto &entry) { return !entry.second.view.Lock(); });
        // A finger holds what it landed on, wherever that is now.
        const bool held = IsAnyFingerDown();
        for (auto &[pointer, followed] : followed_) {
            const objc::Ref<ui::View> view = followed.view.Lock();
            if (held || IsInUse(view)) {
                followed.unused.reset();
            } else if (!followed.unused) {
                followed.unused = clock::Now();
            } else if (clock::Now() - *followed.unused > kSoon) {
                return script::Render(DescribeView(view)) + " is kept";
            }
        }
        return "";
    }

  private:
    struct Followed {
        objc::WeakRef<ui::View> view;
        std::optional<double> unused; // since when, in seconds since the launch
    };

    void Follow(ui::View view) {
        followed_.try_emplace(view.pointer, Followed{objc::WeakRef<ui::View>(view), std::nullopt});
    }

    static bool IsInUse(ui::View view) {
        return view.superview() || (IsKind(view, "UIWindow") && !view.isHidden());
    }

    std::string window_;
    std::map<objc::id, Followed> followed_;
};

} // namespace

std::unique_ptr<Invariant> MakeReleased(WordReader &words) {
    return std::make_unique<Released>(words);
}

} // namespace sim::driver
