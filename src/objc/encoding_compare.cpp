#include "objc/encoding_compare.hpp"

#include "objc/encoding_reader.hpp"

#include <cstring>

namespace objc {
namespace {

char Canonical(char code, Integers integers) {
    if (code == 'c') {
        return 'B';
    }
    if (integers == Integers::kExact) {
        return code;
    }
    switch (code) {
    case 'C':
        return 'B';
    case 'l':
    case 'i':
        return 'q';
    case 'L':
    case 'I':
        return 'Q';
    default:
        return code;
    }
}

bool SameTypes(EncodingReader left, EncodingReader right, Integers integers);

/// The fields of a structure type at `reader`, which steps past it; the name is dropped.
EncodingReader Fields(EncodingReader &reader) {
    const char *fields = reader.at + std::strcspn(reader.at, "=}");
    reader.SkipType();
    return {*fields == '=' ? fields + 1 : fields};
}

bool SameType(EncodingReader &left, EncodingReader &right, Integers integers) {
    left.SkipNoise();
    right.SkipNoise();
    const auto pointer = [](char code) { return code == '^' || code == '*'; };
    const bool block = left.at[0] == '@' && left.at[1] == '?' && right.at[0] == '^' && right.at[1] == '{';
    // What pointers point to is opaque to one side or the other.
    const bool pointers = pointer(*left.at) && pointer(*right.at);
    // iOS's va_list is a plain pointer; elsewhere it is an array of one structure, or a structure passed by reference.
    const bool argumentList = *left.at == '*' && (*right.at == '[' || *right.at == '{');
    if (*left.at == '{' && *right.at == '{') {
        const EncodingReader leftFields = Fields(left);
        const EncodingReader rightFields = Fields(right);
        return SameTypes(leftFields, rightFields, integers);
    }
    if (!block && !pointers && !argumentList && Canonical(*left.at, integers) != Canonical(*right.at, integers)) {
        return false;
    }
    left.SkipType();
    right.SkipType();
    return true;
}

bool SameTypes(EncodingReader left, EncodingReader right, Integers integers) {
    const auto ended = [](const EncodingReader &reader) { return *reader.at == '\0' || *reader.at == '}'; };
    for (;;) {
        left.SkipNoise();
        right.SkipNoise();
        if (ended(left) || ended(right)) {
            return ended(left) && ended(right);
        }
        if (!SameType(left, right, integers)) {
            return false;
        }
    }
}

} // namespace

bool SameEncoding(const char *expected, const char *found, Integers integers) {
    return SameTypes(EncodingReader{expected}, EncodingReader{found}, integers);
}

} // namespace objc
