// The exported keys of text attributes. The platform's headers declare them constant, so they are given their values
// here, in a unit that does not see those declarations.

#include "apple/foundation/string.hpp"
#include "uikit/text_measuring.hpp"

extern "C" {
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): set once, at registration
ns::String NSFontAttributeName;
ns::String NSForegroundColorAttributeName;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)
}

namespace sim {

void SetTextAttributeNames() {
    NSFontAttributeName = "NSFont"_ns;
    NSForegroundColorAttributeName = "NSColor"_ns;
}

} // namespace sim
