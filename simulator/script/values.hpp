#pragma once
// Foundation's objects in the words of a script: the values of preferences, arguments of host methods, room ids.

#include "apple/foundation/string.hpp"
#include "script/expectation.hpp"

namespace sim::script {

/// The string of a UTF-8 text (lone surrogates as they are), autoreleased.
ns::String MakeString(std::string_view text);

/// The UTF-8 text of a string; empty for nil.
std::string TextOf(ns::String string);

/// The name of an object's class; the object must not be nil.
std::string ClassName(ns::Object object);

/// Reads one value: "text" or string "text", a number, int N, float X, double X, bool true|false, data HEX,
/// date SECONDS (since 1970), array [ VALUE... ], dict { "key" VALUE ... }, null (NSNull), nil. Autoreleased.
ns::Object ReadValue(WordReader &words);

/// Whether the next word begins a value.
bool SeesValue(const WordReader &words);

/// A value in the same words: "text", int 1, float 0.5, bool true, data DEAD, date 0, [ ... ], { ... }, null, nil;
/// any other object as <Class>. Keys of a dictionary stand in the order of their text.
Fact DescribeValue(ns::Object value);

} // namespace sim::script
