#pragma once
// The C++ structure that an object of a class written in C++ carries.

#include "objc/object.hpp"
#include "objc/runtime.hpp"

namespace sim {

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

} // namespace detail

/// The state that the class defined with State keeps in this object. The object must be of that class.
template <class State> State &StateOf(objc::Object object) {
    State *&state = detail::StatePointer<State>(object.pointer);
    if (state == nullptr) {
        state = new State();
    }
    return *state;
}

} // namespace sim
