#include "uikit/view_state.hpp"

#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/view.hpp"

#include <cmath>
#include <cstdio>
#include <map>
#include <string>

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

std::map<std::string, DrawContent> &Drawings() {
    static std::map<std::string, DrawContent> drawings;
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
    const bool resized = state.model.bounds.size != values.bounds.size;
    state.model = values;
    if (resized) {
        SetNeedsLayout(view);
    }
}

void RegisterDrawing(const char *className, DrawContent draw) {
    Drawings()[className] = draw;
}

DrawContent DrawingOf(ui::View view) {
    for (objc::Class cls = objc::object_getClass(view.pointer); cls != nullptr; cls = class_getSuperclass(cls)) {
        if (const auto found = Drawings().find(class_getName(cls)); found != Drawings().end()) {
            return found->second;
        }
    }
    return nullptr;
}

} // namespace sim
