#pragma once
// Methods and instance variables whose types a script chooses: what a new version of an app may have changed.

#include "hosts/types.hpp"
#include "objc/runtime.hpp"
#include "runtime/native_class.hpp"

#include <functional>
#include <span>

namespace sim::hosts {

/// Writes the result of a call, which is zero before; the arguments come without receiver and selector.
using ShapedBody = std::function<void(ns::Object self, std::span<const Slot> arguments, Slot &result)>;

/// Adds a method of that encoding to a class. Like the app's other methods it is recorded, and throws or refuses when
/// the plan says so. Throws ScriptError for an encoding that scripts cannot write, or that does not fit the selector.
void AddShapedMethod(objc::Class cls, const std::string &selector, const std::string &encoding,
                     const script::Place &place, ShapedBody body);

/// What a method does whose types the plan has changed: it answers with its first argument of the result's type, else
/// with itself for an object, 7.5 or the nearest to it for a number, 1, 2, 3, … for a structure.
ShapedBody Echo(const std::string &encoding, const script::Place &place);

/// The instance variables that the plan gives a class. Throws ScriptError for a type that scripts cannot write.
std::vector<InstanceVariable> PlannedVariables(const std::string &className);

/// Adds the accessors that the plan gives a class; they answer what the object keeps under that key.
void AddPlannedAccessors(const std::string &className);

/// Brings the instance variable of that name, where the plan has given the object one, up to date with what the object
/// keeps under the key.
void RefreshPlannedVariable(ns::Object object, const std::string &key);

} // namespace sim::hosts
