#pragma once
// Type encodings, read from the front a type at a time.
// https://developer.apple.com/library/archive/documentation/Cocoa/Conceptual/ObjCRuntimeGuide/Articles/ocrtTypeEncodings.html

#include <cstring>

namespace objc {

/// Where the reading has come to; a text that breaks off in the middle of a type ends it.
struct EncodingReader {
    const char *at;

    /// Steps over qualifiers and offsets.
    void SkipNoise() {
        while (*at != '\0' && std::strchr("rnNoORVA0123456789+-", *at) != nullptr) {
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
                const char *end = std::strchr(at + 1, '"');
                at = end != nullptr ? end + 1 : at + std::strlen(at);
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
            if (std::strchr("{([<", *at) != nullptr) {
                ++depth;
            } else if (std::strchr("})]>", *at) != nullptr) {
                --depth;
            }
            ++at;
        } while (depth > 0 && *at != '\0');
    }
};

} // namespace objc
