#pragma once
// Type encodings, read from the front a type at a time.
// https://developer.apple.com/library/archive/documentation/Cocoa/Conceptual/ObjCRuntimeGuide/Articles/ocrtTypeEncodings.html

#include <cstdint>

// Without the C library's functions for strings: the phone's library imports none of them.

namespace objc {

/// A set of type codes, made while compiling: every hook of a host's method asks for dozens of codes at load.
class CodeSet {
  public:
    // NOLINTNEXTLINE(google-explicit-constructor): a set is written as the text of its codes
    consteval CodeSet(const char *codes) {
        for (; *codes != '\0'; ++codes) {
            bits_[*codes / kBits] |= std::uint64_t{1} << *codes % kBits;
        }
    }
    constexpr bool Has(char code) const {
        const auto index = static_cast<unsigned char>(code);
        return index < 2 * kBits && (bits_[index / kBits] >> index % kBits & 1) != 0;
    }

  private:
    static constexpr unsigned kBits = 64;
    std::uint64_t bits_[2]{};
};

/// Whether the code is among the codes; the end of a text is none.
constexpr bool IsOneOf(CodeSet codes, char code) {
    return codes.Has(code);
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
