#include "uikit/autoresizing.hpp"

#include "uikit/view_state.hpp"

namespace sim {
namespace {

/// One direction: the margin before, the view's length, the margin behind.
struct Parts {
    double lengths[3];
    bool flexible[3];
};

Parts Share(Parts parts, double change) {
    double sum = 0;
    int count = 0;
    for (int i = 0; i < 3; ++i) {
        sum += parts.flexible[i] ? parts.lengths[i] : 0;
        count += parts.flexible[i] ? 1 : 0;
    }
    for (int i = 0; i < 3; ++i) {
        if (parts.flexible[i]) {
            parts.lengths[i] += change * (sum != 0 ? parts.lengths[i] / sum : 1.0 / count);
        }
    }
    return parts;
}

} // namespace

cg::Rect Autoresized(cg::Rect frame, cg::Size before, cg::Size after, unsigned long mask) {
    const auto has = [mask](unsigned long bit) { return (mask & bit) != 0; };
    const Parts x = Share({{frame.origin.x, frame.size.width, before.width - frame.origin.x - frame.size.width},
                           {has(UIViewAutoresizingFlexibleLeftMargin), has(UIViewAutoresizingFlexibleWidth),
                            has(UIViewAutoresizingFlexibleRightMargin)}},
                          after.width - before.width);
    const Parts y = Share({{frame.origin.y, frame.size.height, before.height - frame.origin.y - frame.size.height},
                           {has(UIViewAutoresizingFlexibleTopMargin), has(UIViewAutoresizingFlexibleHeight),
                            has(UIViewAutoresizingFlexibleBottomMargin)}},
                          after.height - before.height);
    return {{x.lengths[0], y.lengths[0]}, {x.lengths[1], y.lengths[1]}};
}

void AutoresizeSubviews(ui::View view, cg::Size before) {
    const ViewState &state = ViewStateOf(view);
    if (!state.autoresizesSubviews) {
        return;
    }
    const cg::Size after = state.model.bounds.size;
    for (const objc::Ref<ui::View> &child : std::vector(state.subviews)) {
        if (const unsigned long mask = ViewStateOf(child).autoresizingMask; mask != 0) {
            child->setFrame(Autoresized(child->frame(), before, after, mask));
        }
    }
}

} // namespace sim
