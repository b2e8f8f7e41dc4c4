#pragma once
// Comparison of type encodings across compilers and runtimes.

namespace objc {

/// Whether a method encoded as `expected` (as iOS writes it) can be called where `found` is declared. Offsets,
/// qualifiers, structure names and the compilers' different letters for BOOL and 64-bit integers do not count; a
/// block may stand as the structure pointer that a compiler without blocks declares; an enumeration may be 32 bits.
bool SameEncoding(const char *expected, const char *found);

} // namespace objc
