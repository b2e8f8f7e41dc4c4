#include "driver/grabbing.hpp"

#include "driver/view_properties.hpp"
#include "uikit/application.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

bool IsOnControl(ui::View view) {
    return view && (IsKind(view, "UIControl") || IsOnControl(view.superview()));
}

} // namespace

cg::Rect VisiblePart(ui::View scrollView) {
    const cg::Rect rect = ConvertRect(scrollView.bounds(), scrollView, nullptr);
    const cg::Size screen = ScreenSize();
    const double left = std::max(rect.origin.x, 0.0);
    const double top = std::max(rect.origin.y, 0.0);
    return {{left, top},
            {std::min(rect.origin.x + rect.size.width, screen.width) - left,
             std::min(rect.origin.y + rect.size.height, screen.height) - top}};
}

std::optional<cg::Point> PlaceToGrab(ui::View scrollView, cg::Rect part, bool upwards) {
    constexpr double kStep = 8;
    const double top = part.origin.y + kEdge;
    const double bottom = part.origin.y + part.size.height - kEdge;
    for (const double x : {part.origin.x + kEdge, part.origin.x + part.size.width - kEdge}) {
        for (int step = 0; step * kStep < (bottom - top) / 2; ++step) {
            const double way = step * kStep;
            const cg::Point point{x, upwards ? bottom - way : top + way};
            const ui::View hit = HitTestScreen(point);
            if (hit && IsDescendant(hit, scrollView) && !IsOnControl(hit)) {
                return point;
            }
        }
    }
    return std::nullopt;
}

} // namespace sim::driver
