#pragma once
// What the declared types of a host's method let us do with it. A new version of an app may keep a selector and change
// its types; then the method is left alone.

#include <cstddef>

namespace corvel {

/// Whether a method declared with the types (as method_getTypeEncoding gives them; nil fits nothing) takes that many
/// arguments after receiver and selector, and these and its result, if it has one, each travel in one general register:
/// objects, pointers, integers, BOOL. Floating-point numbers and structures do not.
/// https://github.com/ARM-software/abi-aa/blob/main/aapcs64/aapcs64.rst
bool TravelsInGeneralRegisters(const char *types, std::size_t argumentCount);

/// Whether the first argument of a method declared with the types is an object (a block is none).
bool TakesObjectFirst(const char *types);

/// Whether a hook's replacement can stand for a method of that name that is declared with the types: it carries words,
/// and the first argument is an object where the replacement uses it as one.
bool CanStandFor(const char *types, const char *selectorName, bool usesFirstAsObject);

/// Whether a method declared with the types takes no argument and gives an object.
bool IsObjectGetter(const char *types);

/// Whether a method declared with the types takes no argument and gives an integer other than BOOL, of 16 to 64 bits.
bool IsIntegerGetter(const char *types);

/// Whether a method declared with the types takes no argument and gives a BOOL.
bool IsBoolGetter(const char *types);

} // namespace corvel
