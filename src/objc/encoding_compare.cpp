#include "objc/encoding_compare.hpp"

#include <cstring>

namespace objc {
namespace {

/// One encoding, read from the front a type at a time.
struct Reader {
    const char *at;

    void SkipNoise() {
        while (*at != '\0' && std::strchr("rnNoORVA0123456789+-", *at) != nullptr) {
            ++at;
        }
    }

    /// Steps over a quoted name, as in @"NSString".
    void SkipQuoted() {
        if (*at == '"') {
            const char *end = std::strchr(at + 1, '"');
            at = end != nullptr ? end + 1 : at + std::strlen(at);
        }
    }

    /// Steps over one whole type.
    void SkipType() {
        SkipNoise();
        switch (*at) {
        case '^':
            ++at;
            SkipType();
            return;
        case '@':
            ++at;
            if (*at == '?') {
                ++at;
            }
            SkipQuoted();
            return;
        case '{':
        case '(':
        case '[': {
            int depth = 0;
            do {
                if (std::strchr("{([", *at) != nullptr) {
                    ++depth;
                } else if (std::strchr("})]", *at) != nullptr) {
                    --depth;
                }
                ++at;
            } while (depth > 0 && *at != '\0');
            return;
        }
        case '\0':
            return;
        default:
            ++at;
        }
    }
};

char Canonical(char code) {
    switch (code) {
    case 'c':
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

bool SameTypes(Reader left, Reader right);

/// The fields of a structure type at `reader`, which steps past it; the name is dropped.
Reader Fields(Reader &reader) {
    Reader fields{reader.at + 1};
    reader.SkipType();
    const char *equals = fields.at;
    while (equals < reader.at && *equals != '=') {
        ++equals;
    }
    fields.at = equals < reader.at ? equals + 1 : reader.at - 1;
    return fields;
}

bool SameType(Reader &left, Reader &right) {
    left.SkipNoise();
    right.SkipNoise();
    const bool block = left.at[0] == '@' && left.at[1] == '?';
    if (block && right.at[0] == '^' && right.at[1] == '{') {
        left.SkipType();
        right.SkipType();
        return true;
    }
    // Pointers stand for one another: what they point to is opaque to one side or the other.
    const auto pointer = [](char code) { return code == '^' || code == '*'; };
    if (pointer(*left.at) && pointer(*right.at)) {
        left.SkipType();
        right.SkipType();
        return true;
    }
    // iOS's va_list is a plain pointer; elsewhere it is an array of one structure, or a structure passed by reference.
    if (*left.at == '*' && (*right.at == '[' || *right.at == '{')) {
        left.SkipType();
        right.SkipType();
        return true;
    }
    if (*left.at == '{' && *right.at == '{') {
        const Reader leftFields = Fields(left);
        const Reader rightFields = Fields(right);
        return SameTypes(leftFields, rightFields);
    }
    if (Canonical(*left.at) != Canonical(*right.at)) {
        return false;
    }
    left.SkipType();
    right.SkipType();
    return true;
}

bool SameTypes(Reader left, Reader right) {
    const auto ended = [](const Reader &reader) { return *reader.at == '\0' || *reader.at == '}'; };
    for (;;) {
        left.SkipNoise();
        right.SkipNoise();
        if (ended(left) || ended(right)) {
            return ended(left) && ended(right);
        }
        if (!SameType(left, right)) {
            return false;
        }
    }
}

} // namespace

bool SameEncoding(const char *expected, const char *found) {
    return SameTypes(Reader{expected}, Reader{found});
}

} // namespace objc
