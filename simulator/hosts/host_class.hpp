#pragma once
// Registration of a host's classes. Each method records its calls and throws when the plan says so; the plan also
// decides which classes and methods exist at all.

#include "hosts/objects.hpp"
#include "hosts/plan.hpp"
#include "hosts/record.hpp"
#include "runtime/native_class.hpp"

namespace sim::hosts {

/// A method of a host class. Optional ones exist only when the plan adds them.
struct HostMethod {
    objc::MethodEntry entry;
    bool optional = false;
};

/// Records a call and raises what the plan holds for it. An initialiser that raises gives its object up; an object
/// whose dealloc raises is lost, which is no leak of ours.
void Arrive(objc::id self, objc::SEL selector, std::vector<script::Fact> arguments);

/// Whether the plan lets the method do nothing. An initialiser that does nothing gives its object up.
bool Refuses(objc::id self, objc::SEL selector);

/// Raises an exception of the host with this reason.
[[noreturn]] void Raise(const std::string &reason);

namespace detail {

template <auto Function> struct Arrival;

template <class R, class Self, class... A, R (*Function)(Self, objc::SEL, A...)> struct Arrival<Function> {
    static R Call(Self self, objc::SEL selector, A... arguments) {
        Arrive(self.pointer, selector, {DescribeArgument(arguments)...});
        return Refuses(self.pointer, selector) ? R() : Function(self, selector, arguments...);
    }
};

/// The methods that a class defines itself, or those that it inherits from its base, as the plan divides them.
std::vector<objc::MethodEntry> Planned(const std::string &cls, std::span<const HostMethod> methods, bool inherited);

} // namespace detail

/// The entry of a function R (Self, SEL, arguments...) under a selector, recorded and able to throw.
template <objc::FixedString Name, auto Function> HostMethod Method() {
    return {objc::MethodNamed<Name, &detail::Arrival<Function>::Call>()};
}

/// The same for a method that only some builds of the app have.
template <objc::FixedString Name, auto Function> HostMethod OptionalMethod() {
    return {objc::MethodNamed<Name, &detail::Arrival<Function>::Call>(), true};
}

/// What a method does that only the app calls. It answers something, because a hook has to hand on what there is.
inline ns::Object Itself(ns::Object self, objc::SEL) {
    return self;
}

/// A class of a host between its base class, which may hold inherited methods, and a sibling that shares the base.
struct Family {
    const char *root;
    const char *base;
    const char *name;
    const char *sibling;
};

/// Registers base, class and sibling. The plan may leave the class itself out.
void RegisterFamily(const Family &family, std::span<const HostMethod> methods,
                    std::span<const HostMethod> classMethods = {});

/// Makes an object of a class by name; nil when the class is missing.
objc::Ref<ns::Object> MakeObject(const char *className);

} // namespace sim::hosts
