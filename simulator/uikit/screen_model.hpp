#pragma once
// The screens that phones have. All lengths are points.

#include "apple/coregraphics/geometry.hpp"
#include "apple/uikit/edge_insets.hpp"

#include <span>

namespace sim {

/// How high the keys of a keyboard are, the home indicator's strip included.
struct KeyHeights {
    double letters = 0; // with the bar of suggestions
    double numberPad = 0;
    friend bool operator==(const KeyHeights &, const KeyHeights &) = default;
};

struct ScreenModel {
    const char *name = "";
    cg::Size size; // upright
    double scale = 0;
    ui::EdgeInsets upright; // the safe area while the interface is upright
    KeyHeights uprightKeys;
    ui::EdgeInsets lying; // the safe area in landscape, the same whichever way the phone is turned
    KeyHeights lyingKeys;
};

/// All of them, the smallest first.
std::span<const ScreenModel> ScreenModels();

/// The model that a phone has unless another is chosen.
const ScreenModel &UsualScreen();

/// The model of this size (upright). A size that no row has takes everything else from the row that is nearest in
/// height among the phones with a home button, or among those without: the latter are more than twice as high as wide.
ScreenModel ScreenOfSize(cg::Size size);

} // namespace sim
