#pragma once
// Objects that last as long as the process.

namespace sim {

/// The one T of the process, made at first use. Never destroyed: objects are deallocated, observers removed and values
/// stored until the very end, after the destructors of static objects.
template <class T> T &Lasting() {
    static T &object = *new T;
    return object;
}

} // namespace sim
