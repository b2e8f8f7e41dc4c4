#include "uikit/uikit.hpp"

#include "uikit/classes.hpp"

namespace sim {

void RegisterUIKit() {
#define CALL(Name) Define##Name();
    UIKIT_CLASSES(CALL)
#undef CALL
}

} // namespace sim
