#pragma once
// Reading the conversions of a format string.

#include "apple/foundation/string.hpp"

namespace corvel {

/// How wide an integer conversion reads its argument.
enum class ConversionSize : unsigned char { kChar, kShort, kInt, kLong };

/// A width or precision: a number, or a star that takes it from an argument.
struct ConversionField {
    long value = 0;
    bool star = false;
    unsigned long position = 0; ///< of the star's argument, from 1; 0 takes the next one
};

/// One conversion as it is written.
struct Conversion {
    bool left = false;
    bool plus = false;
    bool space = false;
    bool alternate = false;
    bool zero = false;
    bool grouping = false;
    ConversionField width;
    ConversionField precision{.value = -1}; ///< none when negative
    ConversionSize size = ConversionSize::kInt;
    unsigned long position = 0; ///< of the argument, from 1; 0 takes the next one
    char16_t kind = 0;          ///< the letter at its end; 0 when the format ends before it

    bool IsSigned() const {
        return kind == u'd' || kind == u'i' || kind == u'D';
    }
    bool IsInteger() const;
    bool IsNumber() const;
    /// Whether the kind is one that a format knows.
    bool IsKnown() const;
};

/// Walks over a format's UTF-16 units, which it fetches a window at a time.
class ConversionReader {
  public:
    explicit ConversionReader(ns::String format) : format_(format), length_(format.length()) {}

    unsigned long length() const {
        return length_;
    }
    /// The index of the first percent sign at or after the index; the length when there is none.
    unsigned long FindPercent(unsigned long at);
    /// Reads the conversion whose percent sign stands at the index; gives the index behind it.
    unsigned long Read(unsigned long at, Conversion &conversion);

  private:
    /// The unit at the index; 0 past the end.
    char16_t At(unsigned long index);
    unsigned long ReadNumber(unsigned long at, long &number);
    unsigned long ReadPosition(unsigned long at, unsigned long &position);
    unsigned long ReadFlags(unsigned long at, Conversion &conversion);
    unsigned long ReadField(unsigned long at, ConversionField &field);
    unsigned long ReadSize(unsigned long at, ConversionSize &size);

    static constexpr unsigned long kWindow = 512;
    ns::String format_;
    unsigned long length_;
    unsigned long start_ = 0;
    unsigned long end_ = 0;
    char16_t window_[kWindow];
};

} // namespace corvel
