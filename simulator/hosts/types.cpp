#include "hosts/types.hpp"

#include "apple/foundation/number.hpp"
#include "hosts/blocks.hpp"
#include "hosts/invocation.hpp"
#include "hosts/record.hpp"
#include "objc/encoding_reader.hpp"

#include <algorithm>
#include <cstring>

namespace sim::hosts {
namespace {

void ReadObjectOrBlock(Slot &slot, WordReader &words) {
    slot.object = words.Take("block") ? ReadBlock(words) : ReadObject(words).pointer;
}

void ReadBoolean(Slot &slot, WordReader &words) {
    slot.boolean = words.Take("true") ? 1 : 0;
    if (slot.boolean == 0) {
        words.Expect("false");
    }
}

void ReadInteger(Slot &slot, WordReader &words) {
    slot.integer = words.Integer("a whole number");
}

Fact DescribeInteger(const Slot &slot) {
    return DescribeArgument(slot.integer);
}

void UnboxObject(Slot &slot, ns::Object value) {
    slot.object = value.pointer;
}

void UnboxInteger(Slot &slot, ns::Object value) {
    slot.integer = objc::As<ns::Number>(value).longValue();
}

void UnboxNothing(Slot &, ns::Object) {}

/// Structures of doubles: points, sizes, vectors; rectangles and insets; transforms.
template <int N> ffi_type *Doubles() {
    static ffi_type *fields[N + 1] = {};
    static ffi_type type{0, 0, FFI_TYPE_STRUCT, fields};
    std::fill_n(fields, N, &ffi_type_double);
    return &type;
}

template <int N> void ReadDoubles(Slot &slot, WordReader &words) {
    for (int i = 0; i < N; ++i) {
        slot.reals[i] = words.Number("a number of the structure");
    }
}

template <int N> Fact DescribeDoubles(const Slot &slot) {
    Fact fact;
    for (int i = 0; i < N; ++i) {
        fact.push_back(Bare(slot.reals[i]));
    }
    return fact;
}

template <int N> Type Structure() {
    return {"{", Doubles<N>(), &ReadDoubles<N>, &DescribeDoubles<N>, &UnboxNothing};
}

const Type kTypes[] = {
    {"v", &ffi_type_void, nullptr, [](const Slot &) { return Fact{}; }, &UnboxNothing},
    {"@#", &ffi_type_pointer, &ReadObjectOrBlock,
     [](const Slot &slot) { return DescribeArgument(ns::Object{slot.object}); }, &UnboxObject},
    {"?", &ffi_type_pointer, &ReadObjectOrBlock, [](const Slot &slot) { return NameOfBlock(slot.object); },
     &UnboxObject},
    {":", &ffi_type_pointer,
     [](Slot &slot, WordReader &words) { slot.selector = sel_registerName(words.Name("a selector").c_str()); },
     [](const Slot &slot) { return Fact{Bare(sel_getName(slot.selector))}; }, &UnboxNothing},
    {"BcC", &ffi_type_uint8, &ReadBoolean, [](const Slot &slot) { return DescribeArgument((slot.raw & 0xFF) != 0); },
     [](Slot &slot, ns::Object value) { slot.boolean = objc::As<ns::Number>(value).doubleValue() != 0 ? 1 : 0; }},
    {"iI", &ffi_type_sint32, &ReadInteger, &DescribeInteger, &UnboxInteger},
    {"qQlL", &ffi_type_sint64, &ReadInteger, &DescribeInteger, &UnboxInteger},
    {"d", &ffi_type_double, [](Slot &slot, WordReader &words) { slot.real = words.Number("a number"); },
     [](const Slot &slot) { return DescribeArgument(slot.real); },
     [](Slot &slot, ns::Object value) { slot.real = objc::As<ns::Number>(value).doubleValue(); }},
    {"f", &ffi_type_float,
     [](Slot &slot, WordReader &words) { slot.single = static_cast<float>(words.Number("a number")); },
     [](const Slot &slot) { return DescribeArgument(slot.single); },
     [](Slot &slot, ns::Object value) { slot.single = objc::As<ns::Number>(value).floatValue(); }},
};

struct StructureRow {
    std::size_t count; // of its doubles
    Type type;
};

const StructureRow kStructures[] = {{2, Structure<2>()}, {4, Structure<4>()}, {6, Structure<6>()}};

/// The type of a structure; null unless it has doubles alone, as many as one in the table.
const Type *StructureOf(std::string_view encoding) {
    std::size_t count = 0;
    bool named = false;
    for (const char code : encoding) {
        named = code == '{' || (named && code != '=');
        if (!named && code == 'd') {
            ++count;
        } else if (!named && code != '=' && code != '}') {
            return nullptr;
        }
    }
    const auto *const found = std::ranges::find(kStructures, count, &StructureRow::count);
    return found != std::end(kStructures) ? &found->type : nullptr;
}

const Type *TypeOf(std::string_view encoding) {
    if (encoding.starts_with('{')) {
        return StructureOf(encoding);
    }
    const char code = encoding.starts_with("@?") ? '?' : encoding.empty() ? '\0' : encoding.front();
    const auto *const found = std::ranges::find_if(
        kTypes, [code](const Type &type) { return type.codes.find(code) != std::string_view::npos; });
    return found != std::end(kTypes) ? found : nullptr;
}

} // namespace

std::vector<const Type *> TypesOf(const char *encoding, const script::Place &place) {
    std::vector<const Type *> types;
    objc::EncodingReader reader{encoding};
    for (reader.SkipNoise(); *reader.at != '\0'; reader.SkipNoise()) {
        const char *const begin = reader.at;
        reader.SkipType();
        const std::string_view code(begin, static_cast<std::size_t>(reader.at - begin));
        types.push_back(TypeOf(code));
        if (types.back() == nullptr) {
            throw script::ScriptError(place, "a script cannot pass or print a value of type " + std::string(code));
        }
    }
    return types;
}

Slot Load(const Type &type, const void *from) {
    Slot slot{};
    if (type.ffi == &ffi_type_sint32) {
        int narrow = 0;
        std::memcpy(&narrow, from, sizeof narrow);
        slot.integer = narrow;
    } else {
        std::memcpy(&slot, from, type.ffi->size);
    }
    return slot;
}

void StoreResult(const Type &type, const Slot &slot, void *to) {
    // libffi wants what is narrower than a register widened to one.
    const bool narrow = type.ffi == &ffi_type_uint8 || type.ffi == &ffi_type_sint32;
    std::memcpy(to, &slot, narrow ? sizeof(ffi_arg) : type.ffi == &ffi_type_void ? 0 : type.ffi->size);
}

} // namespace sim::hosts
