#pragma once
// The types of methods: how calls pass their values and how scripts write them.

#include "apple/foundation/object.hpp"
#include "script/words.hpp"

#include <ffi.h>

namespace sim::hosts {

/// Room for any one argument or result. A structure stands as its numbers in a row.
union Slot {
    objc::id object;
    objc::SEL selector;
    long integer;
    unsigned char boolean;
    double real;
    float single;
    double reals[6];
    ffi_arg raw;
};

struct Type {
    std::string_view codes; // of type encodings: `?` for a block, `{` for a structure of as many doubles as reals[] has
    ffi_type *ffi;
    /// Reads a value from a script; null for a type without values. Throws ScriptError.
    void (*read)(Slot &slot, WordReader &words);
    /// A value in the words of a script.
    Fact (*describe)(const Slot &slot);
    /// The value that a key-value object stands for: a number for a number.
    void (*unbox)(Slot &slot, ns::Object value);
};

/// The types of a method encoding: result, receiver, selector, arguments. Throws ScriptError at the place for a type
/// that scripts cannot write.
std::vector<const Type *> TypesOf(const char *encoding, const script::Place &place);

/// A value of the type that lies at an address, as calls pass arguments.
Slot Load(const Type &type, const void *from);

/// Puts a result where a call looks for it.
void StoreResult(const Type &type, const Slot &slot, void *to);

} // namespace sim::hosts
