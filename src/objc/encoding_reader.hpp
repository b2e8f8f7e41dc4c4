#pragma once
// Type encodings, read from the front a type at a time.
// https://developer.apple.com/library/archive/documentation/Cocoa/Conceptual/ObjCRuntimeGuide/Articles/ocrtTypeEncodings.html

// Without the C library's functions for strings: the phone's library imports none of them.

namespace objc {

/// Whether the code is among the codes; the end of a text is none.
constexpr bool IsOneOf(const char *codes, char code) {
    for (; *codes != '\0'; ++codes) {
        if (*codes == code) {
            return true;
        }
    }
    return false;
}

/// Where the reading has come to; a text that breaks off in the middle of a type ends it.
struct EncodingReader {
    const char *at;

    /// Steps over qualifiers and offsets.
    void SkipNoise() {
        while (IsOneOf("rnNoORVA0123456789+-", *at)) {
            ++at;
        }
    }

    /// Steps over one whole type: of a block its own signature in angle brackets too, of an object its class's name in
    /// quotes.
    void SkipType() {
        SkipNoise();
        switch (*at) {
        case '^':
            ++at;
            SkipType();
            return;
        case '@':
            at += at[1] == '?' ? 2 : 1;
            if (*at == '"') {
                do {
                    ++at;
                } while (*at != '\0' && *at != '"');
                at += *at == '"' ? 1 : 0;
            } else if (*at == '<') {
                SkipNested();
            }
            return;
        case '{':
        case '(':
        case '[':
            SkipNested();
            return;
        case '\0':
            return;
        default:
            ++at;
        }
    }

  private:
    /// Steps over a bracket, its partner and all between them.
    void SkipNested() {
        int depth = 0;
        do {
            if (IsOneOf("{([<", *at)) {
                ++depth;
            } else if (IsOneOf("})]>", *at)) {
                --depth;
            }
            ++at;
        } while (depth > 0 && *at != '\0');
    }
};

} // namespace objc
