#pragma once
// Comparison of type encodings across compilers and runtimes.

namespace objc {

/// How strictly whole numbers are compared.
enum class Integers {
    kExact, // by width and sign, as the phone's compiler writes them
    kLoose, // as another platform's headers may declare them: 32 bits or 64, BOOL as either char
};

/// Whether a method encoded as `expected` (as iOS writes it) can be called where `found` is declared. Offsets,
/// qualifiers, structure names and the two letters for BOOL do not count; a block may stand as the structure pointer
/// that a compiler without blocks declares.
bool SameEncoding(const char *expected, const char *found, Integers integers);

} // namespace objc
