#pragma once
// Autorelease pools with the extent of a C++ scope.

#include "objc/ref.hpp"

namespace sim {

/// A pool for everything autoreleased while it lives; pools nest like the scopes that hold them.
class AutoreleasePool {
  public:
    AutoreleasePool();
    AutoreleasePool(const AutoreleasePool &) = delete;
    AutoreleasePool &operator=(const AutoreleasePool &) = delete;
    /// Releases what the pool holds. An exception that one of those deallocs raises passes on.
    ~AutoreleasePool() noexcept(false);

  private:
    objc::id pool_;
};

/// Hands an owned object to the current pool, as a method does that returns an object it does not own.
template <objc::Handle T> T Autoreleased(const objc::Ref<T> &owned) {
    return objc::Send<"autorelease", T>(T{objc::Retain(owned.get().pointer)});
}

} // namespace sim
