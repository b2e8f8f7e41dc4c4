#include "adapters/method_types.hpp"

#include "objc/encoding_reader.hpp"

namespace corvel {
namespace {

/// How many of a call's words lie in registers, receiver and selector among them.
constexpr std::size_t kGeneralRegisters = 8;

/// The type at the place: 0 the result, 1 the receiver, 2 the selector, from 3 on the arguments. At the end of the text
/// when there is none.
objc::EncodingReader TypeAt(const char *types, std::size_t place) {
    objc::EncodingReader reader{types};
    for (; place > 0; --place) {
        reader.SkipType();
    }
    reader.SkipNoise();
    return reader;
}

/// Whether the types are those of a method without arguments whose result has one of the codes.
bool IsGetter(const char *types, objc::CodeSet codes) {
    return types != nullptr && objc::IsOneOf(codes, *TypeAt(types, 0).at) && *TypeAt(types, 2).at == ':' &&
           *TypeAt(types, 3).at == '\0';
}

} // namespace

bool TravelsInGeneralRegisters(const char *types, std::size_t argumentCount) {
    constexpr objc::CodeSet kWords = "@#:*^?cCsSiIlLqQB";
    if (types == nullptr || argumentCount + 2 > kGeneralRegisters) {
        return false;
    }
    objc::EncodingReader reader = TypeAt(types, 0);
    if (*reader.at != 'v' && !objc::IsOneOf(kWords, *reader.at)) {
        return false;
    }
    std::size_t count = 0;
    for (;; ++count) {
        reader.SkipType();
        reader.SkipNoise();
        if (*reader.at == '\0') {
            return count == argumentCount + 2;
        }
        if (!objc::IsOneOf(kWords, *reader.at)) {
            return false;
        }
    }
}

bool TakesObjectFirst(const char *types) {
    const objc::EncodingReader first = TypeAt(types, 3);
    return first.at[0] == '@' && first.at[1] != '?';
}

bool CanStandFor(const char *types, const char *selectorName, bool usesFirstAsObject) {
    std::size_t arguments = 0;
    for (const char *name = selectorName; *name != '\0'; ++name) {
        arguments += *name == ':' ? 1 : 0;
    }
    return TravelsInGeneralRegisters(types, arguments) && (!usesFirstAsObject || TakesObjectFirst(types));
}

bool IsObjectGetter(const char *types) {
    return IsGetter(types, "@");
}

bool IsIntegerGetter(const char *types) {
    return IsGetter(types, "sSiIlLqQ");
}

bool IsBoolGetter(const char *types) {
    return IsGetter(types, "BcC"); // BOOL is a char where it is no bool
}

} // namespace corvel
