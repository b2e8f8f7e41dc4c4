#pragma once
// Strings of any UTF-16 units.

namespace sim {

/// Makes NSString take every sequence of units, as the phone's does. The desktop's refuses unpaired surrogates in
/// initialisers (a log cut in the middle of a character has one), swallows a leading byte-order mark, and raises
/// where UTF-8 text is asked of such a string.
void InstallStringDifferences();

} // namespace sim
