#pragma once
// The private classes of a host. Each method is declared where it is written. It records its calls and throws or
// refuses when the plan says so; the plan also decides which classes and methods exist at all.

#include "hosts/objects.hpp"
#include "hosts/plan.hpp"
#include "hosts/record.hpp"
#include "runtime/native_class.hpp"

namespace sim::hosts {

/// Records a call and raises what the plan holds for it. An initialiser that raises gives its object up; an object
/// whose dealloc raises is lost, which is no leak of ours.
void Arrive(objc::id self, objc::SEL selector, const std::vector<Fact> &arguments);

/// Whether the plan lets the method do nothing. An initialiser that does nothing gives its object up.
bool Refuses(objc::id self, objc::SEL selector);

/// Raises an exception of the host with this reason.
[[noreturn]] void Raise(const std::string &reason);

namespace detail {

/// The implementation that a lambda without captures stands for.
template <class F, class Signature = decltype(&F::operator())> struct Arrival;

template <class F, class R, class Self, class... A> struct Arrival<F, R (F::*)(Self, A...) const> {
    static R Call(Self self, objc::SEL selector, A... arguments) {
        Arrive(self.pointer, selector, {DescribeArgument(arguments)...});
        return Refuses(self.pointer, selector) ? R() : F{}(self, arguments...);
    }
};

} // namespace detail

/// A class between its base class, which may hold inherited methods, and a sibling that shares the base:
///
///     HostClass store("NSObject", "AppBaseStore", "AppCommentStore", "AppGiftStore");
///     store.Method<"send:">([](ns::Object self, ns::Object text) { ReceiveComment("store", self, text); });
///
/// A method's function takes the receiver and the arguments; it must have no captures.
class HostClass {
  public:
    /// Registers the three classes under a root that exists. The plan may leave the class itself out.
    HostClass(const char *root, const char *base, const char *name, const char *sibling);

    template <objc::FixedString Name, class F> void Method(F) {
        Add(objc::MethodNamed<Name, &detail::Arrival<F>::Call>(), false, false);
    }
    /// A method that only some builds of the app have: it exists when the plan adds it.
    template <objc::FixedString Name, class F> void OptionalMethod(F) {
        Add(objc::MethodNamed<Name, &detail::Arrival<F>::Call>(), true, false);
    }
    template <objc::FixedString Name, class F> void ClassMethod(F) {
        Add(objc::MethodNamed<Name, &detail::Arrival<F>::Call>(), false, true);
    }

  private:
    void Add(const objc::MethodEntry &method, bool optional, bool ofClass) const;

    const char *name_;
    objc::Class base_;
    objc::Class own_; // nil while the plan leaves it out
};

/// What a method does that only the app calls. It answers something, because a hook has to hand on what there is.
inline constexpr auto kItself = [](ns::Object self) { return self; };

/// What a method does that only hooks wait for.
inline constexpr auto kNothing = [](ns::Object) {};

/// Makes an object of a class by name; nil when the class is missing.
objc::Ref<ns::Object> MakeObject(const char *className);

} // namespace sim::hosts
