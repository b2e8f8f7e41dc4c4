#pragma once
// Where one user-perceived character ends and the next begins, in UTF-16 text that may be ill-formed.

namespace corvel {

/// UTF-16 text that is read unit by unit, wherever it lies.
struct Utf16Text {
    const void *context;
    /// The unit at an index below the length.
    char16_t (*unitAt)(const void *context, unsigned long index);
    unsigned long length;

    char16_t operator[](unsigned long index) const {
        return unitAt(context, index);
    }
};

/// Whether a grapheme cluster ends before the unit at `index` (0 to the length, both of which are boundaries). Follows
/// Unicode's extended clusters, with two liberties that only make clusters longer: every pictograph after a joiner
/// belongs to what is before it, and so does every letter of the same script after a virama. Prepended marks stand
/// alone.
bool IsGraphemeBoundary(const Utf16Text &text, unsigned long index);

} // namespace corvel
