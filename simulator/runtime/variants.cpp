#include "runtime/variants.hpp"

#include <algorithm>
#include <bitset>
#include <iterator>

namespace sim {
namespace {

constexpr VariantRow kVariants[] = {
    {Variant::kHiddenKeyWindow, "hidden-key-window",
     "a key window that is hidden hands key status at once to the top-most visible window below",
     "it keeps key status until another window is made key"},
    {Variant::kPresentationUnderWay, "presentation-under-way",
     "a controller whose own presentation is still under way drops what it is to present", "it presents all the same"},
    {Variant::kObserverQueue, "observer-queue",
     "who posts on another thread waits until an observer's block has run on its queue", "it goes on at once"},
    {Variant::kOrientationNotification, "orientation-notification",
     "UIApplicationDidChangeStatusBarOrientationNotification is posted when the interface has turned",
     "it is not posted in an app with scenes"},
    {Variant::kEmptyImageContext, "empty-image-context",
     "an image context with a width or height of 0 is not opened (iOS 15 and 16)", "it raises (iOS 17)"},
};

std::bitset<std::size(kVariants)> chosen;

} // namespace

std::span<const VariantRow> Variants() {
    return kVariants;
}

bool ChooseVariants(std::string_view names) {
    auto choice = chosen;
    while (!names.empty()) {
        const std::string_view name = names.substr(0, names.find(','));
        const auto *const row = std::ranges::find(kVariants, name, &VariantRow::name);
        if (row == std::end(kVariants)) {
            return false;
        }
        choice.set(static_cast<std::size_t>(row->variant));
        names.remove_prefix(std::min(name.size() + 1, names.size()));
    }
    chosen = choice;
    return true;
}

bool Otherwise(Variant variant) {
    return chosen.test(static_cast<std::size_t>(variant));
}

} // namespace sim
