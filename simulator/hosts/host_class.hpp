#pragma once
// The private classes of a host. Each method is declared where it is written. It records its calls and throws or
// refuses when the plan says so; the plan also decides which classes and methods exist at all.

#include "hosts/objects.hpp"
#include "hosts/plan.hpp"
#include "hosts/record.hpp"
#include "runtime/native_class.hpp"

#include <optional>

namespace sim::hosts {

/// Records a call, makes the calls that go with it, and raises what the plan holds for it. An initialiser that raises
/// gives its object up; an object whose dealloc raises is lost, which is no leak of ours.
void Arrive(ns::Object self, const char *selector, const std::vector<Fact> &arguments);

/// Whether the plan lets the method do nothing. An initialiser that does nothing gives its object up.
bool Refuses(ns::Object self, const char *selector);

/// Raises an exception of the host with this reason.
[[noreturn]] void Raise(const std::string &reason);

namespace detail {

/// A method's body after what the record and the plan ask of it.
template <objc::FixedString Name, class Body, class Signature = decltype(&Body::operator())> struct Arrival;

template <objc::FixedString Name, class Body, class R, class First, class... A>
struct Arrival<Name, Body, R (Body::*)(First, A...) const> {
    R operator()(ns::Object self, A... arguments) const {
        Arrive(self, Name.data, {DescribeArgument(arguments)...});
        return Refuses(self, Name.data) ? R() : Body{}(sim::detail::Receiver<First>(self), arguments...);
    }
};

} // namespace detail

/// A class between its base class, which may hold inherited methods, and a sibling that shares the base:
///
///     HostClass store("NSObject", "AppBaseStore", "AppCommentStore", "AppGiftStore");
///     store.Method<"send:">([](ns::Object self, ns::Object text) { ReceiveComment("store", self, text); });
///
/// A method's body is one as sim::Class takes it.
class HostClass {
  public:
    /// Registers the three classes under a root that exists. The plan may leave the class itself out.
    HostClass(const char *root, const char *base, const char *name, const char *sibling);

    template <objc::FixedString Name, class Body> void Method(Body) {
        Add<Name, Body>(HolderOf(Name.data, false));
    }
    /// A method that only some builds of the app have: it exists when the plan adds it.
    template <objc::FixedString Name, class Body> void OptionalMethod(Body) {
        Add<Name, Body>(HolderOf(Name.data, true));
    }
    template <objc::FixedString Name, class Body> void ClassMethod(Body) {
        Class<> *const holder = HolderOf(Name.data, false);
        if (holder != nullptr && !AddPlannedShape(objc::MetaclassOf(holder->pointer()), Name.data)) {
            holder->ClassMethod<Name>(detail::Arrival<Name, Body>{});
        }
    }

  private:
    /// The class that gets the method; null when the plan leaves the method out.
    Class<> *HolderOf(const char *selector, bool optional);
    /// Adds the method as the plan has it when that changes its types; tells whether it does.
    bool AddPlannedShape(objc::Class holder, const char *selector) const;
    template <objc::FixedString Name, class Body> void Add(Class<> *holder) const {
        if (holder != nullptr && !AddPlannedShape(holder->pointer(), Name.data)) {
            holder->Method<Name>(detail::Arrival<Name, Body>{});
        }
    }

    const char *name_;
    Class<> base_;
    std::optional<Class<>> own_; // empty when the plan leaves it out
};

/// Registers a class of the app with the instance variables and accessors that the plan gives it.
Class<> MakePlannedClass(const char *name, const char *superclass);

/// What a method does that only the app calls. It answers something, because a hook has to hand on what there is.
inline constexpr auto kItself = [](ns::Object self) { return self; };

/// What a method does that only hooks wait for.
inline constexpr auto kNothing = [](ns::Object) {};

/// Makes an object of a class by name; nil when the class is missing.
objc::Ref<ns::Object> MakeObject(const char *className);

} // namespace sim::hosts
