#pragma once
// Properties by key. Apps expose the same thing under names that vary from build to build, so an object answers
// key-value reads for whatever keys a script has given it, and raises for every other key as any object does.

#include "hosts/host_class.hpp"

#include <map>

namespace sim::hosts {

/// Registers a root class under one that exists; its objects, and those of its subclasses, are keyed. One an app.
void RegisterKeyedRoot(const char *name, const char *superclass);

/// Whether the objects of a class are keyed.
bool IsKeyed(objc::Class cls);

/// What an object of such a class answers for keys.
std::map<std::string, objc::Ref<ns::Object>> &ValuesOf(ns::Object object);

/// Keeps a value under a key, also in the instance variable of that name; TakeAway ends that.
void Keep(ns::Object object, const std::string &key, ns::Object value);
void TakeAway(ns::Object object, const std::string &key);

/// Takes a value out of all named objects that keep it, without releasing it: it is about to be released once too
/// often.
void ForgetEverywhere(ns::Object value);

/// The value under a key; nil when there is none. Raises as for an unknown message, like Keep, when the object is of no
/// keyed class: an app that is handed some other object sends it its own messages.
ns::Object ValueUnder(ns::Object object, const std::string &key);

/// A getter and a setter of one key.
template <objc::FixedString Key>
inline constexpr auto kGet = [](ns::Object self) { return ValueUnder(self, Key.data); };
template <objc::FixedString Key>
inline constexpr auto kSet = [](ns::Object self, ns::Object value) { Keep(self, Key.data, value); };

} // namespace sim::hosts
