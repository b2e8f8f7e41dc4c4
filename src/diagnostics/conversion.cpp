#include "diagnostics/conversion.hpp"

#include <algorithm>

namespace corvel {
namespace {

/// Far above any useful number of a format and far below overflow.
constexpr long kLargestNumber = 1'000'000;

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

} // namespace

bool Conversion::IsInteger() const {
    return IsSigned() || kind == u'u' || kind == u'U' || kind == u'x' || kind == u'X' || kind == u'o' || kind == u'O';
}

bool Conversion::IsNumber() const {
    return kind == u'a' || kind == u'A' || (kind >= u'e' && kind <= u'g') || (kind >= u'E' && kind <= u'G');
}

bool Conversion::IsKnown() const {
    switch (kind) {
    case u'%':
    case u'n':
    case u'@':
    case u's':
    case u'S':
    case u'c':
    case u'C':
    case u'p':
        return true;
    default:
        return IsInteger() || IsNumber();
    }
}

char16_t ConversionReader::At(unsigned long index) {
    if (index >= length_) {
        return 0;
    }
    if (index < start_ || index >= end_) {
        start_ = index;
        end_ = std::min(length_, index + kWindow);
        format_.getCharacters(window_, {start_, end_ - start_});
    }
    return window_[index - start_];
}

unsigned long ConversionReader::FindPercent(unsigned long at) {
    while (at < length_ && At(at) != u'%') {
        ++at;
    }
    return at;
}

unsigned long ConversionReader::Read(unsigned long at, Conversion &conversion) {
    at = ReadPosition(at + 1, conversion.position);
    at = ReadFlags(at, conversion);
    at = ReadField(at, conversion.width);
    if (At(at) == u'.') {
        at = ReadField(at + 1, conversion.precision); // a point alone is a precision of 0
    }
    at = ReadSize(at, conversion.size);
    conversion.kind = At(at);
    return std::min(at + 1, length_);
}

unsigned long ConversionReader::ReadNumber(unsigned long at, long &number) {
    number = 0;
    for (; IsDigit(At(at)); ++at) {
        number = std::min((number * 10) + (At(at) - u'0'), kLargestNumber);
    }
    return at;
}

/// Reads "5$" and leaves anything else alone.
unsigned long ConversionReader::ReadPosition(unsigned long at, unsigned long &position) {
    long number = 0;
    const unsigned long end = ReadNumber(at, number);
    if (end == at || At(end) != u'$') {
        return at;
    }
    // Arguments count from 1: 0 stands for one that is missing, as does a number beyond them all.
    position = static_cast<unsigned long>(number > 0 ? number : kLargestNumber);
    return end + 1;
}

unsigned long ConversionReader::ReadFlags(unsigned long at, Conversion &conversion) {
    for (;; ++at) {
        switch (At(at)) {
        case u'-':
            conversion.left = true;
            break;
        case u'+':
            conversion.plus = true;
            break;
        case u' ':
            conversion.space = true;
            break;
        case u'#':
            conversion.alternate = true;
            break;
        case u'0':
            conversion.zero = true;
            break;
        case u'\'':
            conversion.grouping = true;
            break;
        default:
            return at;
        }
    }
}

unsigned long ConversionReader::ReadField(unsigned long at, ConversionField &field) {
    if (At(at) != u'*') {
        return ReadNumber(at, field.value);
    }
    field.star = true;
    return ReadPosition(at + 1, field.position);
}

unsigned long ConversionReader::ReadSize(unsigned long at, ConversionSize &size) {
    for (;; ++at) {
        switch (At(at)) {
        case u'h':
            size = size == ConversionSize::kShort ? ConversionSize::kChar : ConversionSize::kShort;
            break;
        case u'l':
        case u'q':
        case u'j':
        case u'z':
        case u't':
        case u'L':
            size = ConversionSize::kLong;
            break;
        default:
            return at;
        }
    }
}

} // namespace corvel
