#pragma once
// Objective-C classes whose state is a C++ structure: registration, state, the listing of all methods.

#include "objc/class_builder.hpp"
#include "objc/send.hpp"

#include <span>
#include <vector>

namespace sim {

/// One method as the `api` listing prints it.
struct ApiRow {
    const char *className;
    char kind;
    const char *selectorName;
    const char *encoding;
};

/// Every method registered through RegisterClass so far, in order of registration.
std::vector<ApiRow> &ApiRows();

/// Registers a class under its superclass (which must exist) with instance and class methods, and lists them.
/// Ends the process with a message when the name is taken or the superclass missing.
objc::Class RegisterClass(const char *name, const char *superclass, std::span<const objc::MethodEntry> instanceMethods,
                          std::span<const objc::MethodEntry> classMethods = {}, std::size_t stateSlots = 0);

/// Adds methods to a class that exists already (of Foundation), replacing its own ones, and lists them.
void ExtendClass(const char *name, std::span<const objc::MethodEntry> instanceMethods,
                 std::span<const objc::MethodEntry> classMethods = {});

namespace detail {
/// Where the state pointer of one class lies within its instances, and the class that added it.
template <class State> struct StateSlot {
    static inline objc::Class cls = nullptr;
    static inline std::ptrdiff_t offset = 0;
};

/// Ends the process: nil has no state.
[[noreturn]] void StopForNil();

template <class State> State *&StatePointer(objc::id object) {
    if (object == nullptr) {
        StopForNil();
    }
    return *reinterpret_cast<State **>(reinterpret_cast<char *>(object) + StateSlot<State>::offset);
}

template <class State> void Dealloc(objc::id self, objc::SEL selector) {
    delete StatePointer<State>(self);
    StatePointer<State>(self) = nullptr;
    objc::Super super{self, class_getSuperclass(StateSlot<State>::cls)};
    reinterpret_cast<void (*)(objc::id, objc::SEL)>(objc_msg_lookup_super(&super, selector))(self, selector);
}

void AddStatePointer(objc::Class cls, std::ptrdiff_t &offset, objc::IMP dealloc);
} // namespace detail

/// The same for a class whose instances (and those of its subclasses) each carry a State: made with its default
/// constructor at first use, destroyed in the object's dealloc before the superclass's.
template <class State>
objc::Class RegisterClassWithState(const char *name, const char *superclass,
                                   std::span<const objc::MethodEntry> instanceMethods,
                                   std::span<const objc::MethodEntry> classMethods = {}) {
    using Slot = detail::StateSlot<State>;
    Slot::cls = RegisterClass(name, superclass, instanceMethods, classMethods, 1);
    detail::AddStatePointer(Slot::cls, Slot::offset, reinterpret_cast<objc::IMP>(&detail::Dealloc<State>));
    return Slot::cls;
}

/// The state that the class registered with State keeps in this object. The object must be of that class.
template <class State> State &StateOf(objc::Object object) {
    State *&state = detail::StatePointer<State>(object.pointer);
    if (state == nullptr) {
        state = new State();
    }
    return *state;
}

} // namespace sim
