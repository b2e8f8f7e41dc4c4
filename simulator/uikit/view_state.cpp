#include "uikit/view_state.hpp"

#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/autoresizing.hpp"
#include "uikit/by_class.hpp"
#include "uikit/view.hpp"

#include <cmath>
#include <cstdio>

namespace sim {
namespace {

void CheckFinite(const char *what, double first, double second) {
    if (std::isfinite(first) && std::isfinite(second)) {
        return;
    }
    char reason[128];
    std::snprintf(reason, sizeof reason, "CALayer %s contains %s: [%g %g]", what,
                  std::isnan(first) || std::isnan(second) ? "NaN" : "infinity", first, second);
    RaiseException("CALayerInvalidGeometry", reason);
}

ByClass<Drawing> &Drawings() {
    static ByClass<Drawing> drawings;
    return drawings;
}

} // namespace

ViewState &ViewStateOf(ui::View view) {
    return StateOf<ViewState>(view);
}

void SetViewValues(ui::View view, const ViewValues &values) {
    CheckFinite("bounds", values.bounds.origin.x, values.bounds.origin.y);
    CheckFinite("bounds", values.bounds.size.width, values.bounds.size.height);
    CheckFinite("position", values.center.x, values.center.y);
    ViewState &state = ViewStateOf(view);
    RecordAnimation(view, state.model, values);
    const cg::Size before = state.model.bounds.size;
    state.model = values;
    if (before != values.bounds.size) {
        AutoresizeSubviews(view, before);
        SetNeedsLayout(view);
    }
}

void RegisterDrawing(const char *className, DrawContent draw, DrawnFrom from) {
    Drawings().Set(className, {draw, from});
}

Drawing DrawingOf(ui::View view) {
    const Drawing *drawing = Drawings().Find(view);
    return drawing != nullptr ? *drawing : Drawing{};
}

} // namespace sim
