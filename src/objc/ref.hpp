#pragma once
// Ownership: retain and release, and the one smart pointer that does them.

#include "objc/object.hpp"
#include "objc/send.hpp"

#include <utility>

namespace objc {

inline id Retain(id object) {
#if defined(__APPLE__)
    return objc_retain(object);
#else
    return Send<"retain", Object>(Object{object}).pointer;
#endif
}

inline void Release(id object) {
#if defined(__APPLE__)
    objc_release(object);
#else
    Send<"release", void>(Object{object});
#endif
}

/// Owns one reference to an object seen as T; empty is nil.
template <Handle T> class Ref {
  public:
    constexpr Ref() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): holding a view is retaining it
    Ref(T object) : object_(object) {
        Retain(object_.pointer);
    }
    // NOLINTNEXTLINE(google-explicit-constructor): nil is written nullptr
    constexpr Ref(std::nullptr_t) {}
    Ref(const Ref &other) : Ref(other.object_) {}
    Ref(Ref &&other) noexcept : object_(std::exchange(other.object_, T{})) {}
    Ref &operator=(Ref other) noexcept {
        std::swap(object_, other.object_); // the old occupant goes with `other`, after the new one is in place
        return *this;
    }
    // A dealloc that throws must pass on to whoever guards, not end the process.
    ~Ref() noexcept(false) {
        if (object_) {
            Release(object_.pointer);
        }
    }

    /// Takes over a reference that the caller owns already (the result of alloc, init, copy, new).
    static Ref Adopt(T object) {
        Ref adopted;
        adopted.object_ = object;
        return adopted;
    }

    /// Becomes empty without releasing: for an object that is being deallocated already, so that the reference held
    /// here is gone with it.
    void Abandon() {
        object_ = T{};
    }

    T get() const {
        return object_;
    }
    // NOLINTNEXTLINE(google-explicit-constructor): an owner passes wherever its view does
    operator T() const {
        return object_;
    }
    const T *operator->() const {
        return &object_;
    }
    explicit operator bool() const {
        return static_cast<bool>(object_);
    }

  private:
    T object_{};
};

/// A reference that does not keep its object alive and reads as nil once the object is gone.
template <Handle T> class WeakRef {
  public:
    explicit WeakRef(T object) {
        objc_initWeak(&location_, object.pointer);
    }
    WeakRef(const WeakRef &other) {
        objc_copyWeak(&location_, const_cast<id *>(&other.location_));
    }
    WeakRef &operator=(const WeakRef &) = delete;
    ~WeakRef() {
        objc_destroyWeak(&location_);
    }
    /// The object, kept alive by the result; empty when it is gone.
    Ref<T> Lock() const {
        return Ref<T>::Adopt(T{objc_loadWeakRetained(const_cast<id *>(&location_))});
    }

  private:
    id location_ = nullptr;
};

} // namespace objc
