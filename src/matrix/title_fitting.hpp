#pragma once
// How much of a text fits into a cell: the longest prefix that does, found with few measurements.

#include "matrix/grapheme.hpp"

namespace corvel {

/// Tells whether the prefix of that many units fits; every call is one measurement.
struct PrefixFits {
    void *context;
    bool (*fits)(void *context, unsigned long length);

    bool operator()(unsigned long length) const {
        return fits(context, length);
    }
};

struct TitleFit {
    /// UTF-16 units of the text that the title shows.
    unsigned long length;
    /// Whether that is less than the text holds, or does not fit even so.
    bool shortened;
};

/// The whole text when it fits (an empty one does), else the longest shorter prefix that fits, as if each were measured
/// from the longest down; when none fits, the first unit. Measures at most 2 * log2(length) + 4 prefixes and those that
/// end within one grapheme cluster.
TitleFit FitTitle(const Utf16Text &text, PrefixFits fits);

} // namespace corvel
