#pragma once
// Characters as readers see them.

namespace sim {

/// Makes NSString's ranges of composed character sequences what they are on the phone, where a base with its marks, an
/// emoji with all that is joined to it, a flag, a syllable of Hangul or Indic letters and a CR LF are one character.
/// The desktop's know marks only. https://developer.apple.com/documentation/foundation/nsstring
void InstallComposedCharacters();

} // namespace sim
