#include "overlay/state.hpp"

namespace corvel {

OverlayState &Overlay() {
    // Kept until the process is gone: nothing is torn down at its end.
    [[clang::no_destroy]] static constinit OverlayState state;
    return state;
}

} // namespace corvel
