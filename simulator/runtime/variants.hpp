#pragma once
// What phones do in one of two ways: nobody has settled which, or it depends on the version of iOS. A run does the
// usual one unless its options ask for the other.

#include <span>
#include <string_view>

namespace sim {

enum class Variant {
    kHiddenKeyWindow,
    kPresentationUnderWay,
    kObserverQueue,
    kOrientationNotification,
    kEmptyImageContext,
};

struct VariantRow {
    Variant variant;
    const char *name; // as the option has it
    const char *usual;
    const char *otherwise;
};

/// All of them, in the order of the enumeration.
std::span<const VariantRow> Variants();

/// Chooses the other way for these, whose names stand apart by commas. False, and nothing chosen, when a name is
/// unknown.
bool ChooseVariants(std::string_view names);

/// Whether this run does the other way instead of the usual one.
bool Otherwise(Variant variant);

} // namespace sim
