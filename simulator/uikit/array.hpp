#pragma once
// NSArrays of what the subset keeps in vectors.

#include "apple/foundation/collections.hpp"

#include <vector>

namespace sim {

/// An autoreleased array of the vector's objects (views or references), none of which may be nil.
template <class T> ns::Array MakeArray(const std::vector<T> &objects) {
    std::vector<objc::id> pointers;
    pointers.reserve(objects.size());
    for (const T &object : objects) {
        if constexpr (objc::Handle<T>) {
            pointers.push_back(object.pointer);
        } else {
            pointers.push_back(object.get().pointer);
        }
    }
    return objc::SendClass<ns::Array, "arrayWithObjects:count:", ns::Array>(
        static_cast<const objc::id *>(pointers.data()), static_cast<unsigned long>(pointers.size()));
}

} // namespace sim
