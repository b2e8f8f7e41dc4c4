#include "inspect/platform_classes.hpp"

#include <algorithm>
#include <iterator>

namespace inspect {
namespace {

struct PlatformClass {
    std::string_view name;
    std::string_view superclass;
};

constexpr std::string_view kRoot = "NSObject";

constexpr PlatformClass kClasses[] = {
    {kRoot, ""},
    {"UIResponder", kRoot},
    {"UIView", "UIResponder"},
    {"UIViewController", "UIResponder"},
    {"UIControl", "UIView"},
    {"UIButton", "UIControl"},
    {"UITextField", "UIControl"},
    {"UIImageView", "UIView"},
    {"UILabel", "UIView"},
    {"UIScrollView", "UIView"},
    {"UITextView", "UIScrollView"},
    {"UITableView", "UIScrollView"},
    {"UICollectionView", "UIScrollView"},
    {"UIStackView", "UIView"},
    {"UIVisualEffectView", "UIView"},
};

constexpr PlatformMethod kMethods[] = {
    {kRoot, "dealloc", "v16@0:8"},
    {"UIView", "didMoveToSuperview", "v16@0:8"},
    {"UIView", "didMoveToWindow", "v16@0:8"},
    {"UILabel", "setText:", "v24@0:8@16"},
    {"UITextField", "setText:", "v24@0:8@16"},
    {"UITextView", "setText:", "v24@0:8@16"},
};

const PlatformClass *Find(std::string_view name) {
    const auto *const found = std::ranges::find(kClasses, name, &PlatformClass::name);
    return found != std::end(kClasses) ? found : nullptr;
}

} // namespace

std::string_view PlatformSuperclass(std::string_view className) {
    const PlatformClass *const found = Find(className);
    return found != nullptr ? found->superclass : kRoot;
}

bool IsPlatformClass(std::string_view className) {
    return Find(className) != nullptr;
}

std::span<const PlatformMethod> PlatformMethods() {
    return kMethods;
}

} // namespace inspect
