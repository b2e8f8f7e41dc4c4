#include "uikit/screen_model.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

// A phone in landscape keeps its sensors' strip free on both sides.
constexpr ScreenModel kModels[] = {
    {"small", {320, 568}, 2, {20, 0, 0, 0}, {253, 216}, {}, {193, 162}},
    {"classic", {375, 667}, 2, {20, 0, 0, 0}, {260, 216}, {}, {200, 162}},
    {"usual", {390, 844}, 3, {47, 0, 34, 0}, {336, 291}, {0, 47, 21, 47}, {209, 171}},
    {"large", {430, 932}, 3, {59, 0, 34, 0}, {346, 301}, {0, 59, 21, 59}, {209, 171}},
};

constexpr std::size_t kUsual = 2;

bool HasHomeButton(cg::Size size) {
    return size.height <= 2 * size.width;
}

} // namespace

std::span<const ScreenModel> ScreenModels() {
    return kModels;
}

const ScreenModel &UsualScreen() {
    return kModels[kUsual];
}

ScreenModel ScreenOfSize(cg::Size size) {
    const auto distance = [size](const ScreenModel &model) {
        const double otherKind = HasHomeButton(model.size) == HasHomeButton(size) ? 0 : 1e6;
        return std::abs(model.size.height - size.height) + otherKind;
    };
    ScreenModel nearest = *std::ranges::min_element(kModels, {}, distance);
    nearest.size = size;
    return nearest;
}

} // namespace sim
