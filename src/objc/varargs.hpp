#pragma once
// Argument lists built by hand: what a variadic call would have passed, as eight-byte slots in memory.

#include "objc/encoding.hpp"

#include <cstdint>

namespace objc {

/// One argument of a formatted string: an integer, a pointer, or the bits of a double.
using ArgumentSlot = std::uint64_t;

/// A va_list that reads the given slots in order; reading past the last one is the caller's fault.
#if defined(__APPLE__) || !(defined(__x86_64__) || defined(__aarch64__))
class ArgumentList {
  public:
    explicit ArgumentList(const ArgumentSlot *slots)
        : list_(reinterpret_cast<char *>(const_cast<ArgumentSlot *>(slots))) {}
    char *get() {
        return list_;
    }

  private:
    char *list_;
};
#elif defined(__x86_64__)
class ArgumentList {
  public:
    // Register areas that count as used up send every read to the overflow area, whose slots are eight bytes wide.
    explicit ArgumentList(const ArgumentSlot *slots) : tag_{48, 304, const_cast<ArgumentSlot *>(slots), nullptr} {}
    char *get() {
        return reinterpret_cast<char *>(&tag_);
    }

  private:
    struct Tag {
        unsigned generalOffset;
        unsigned floatingOffset;
        void *overflowArea;
        void *registerSaveArea;
    } tag_;
};
#else
class ArgumentList {
  public:
    // Offsets of zero say that no register argument is left, so every read goes to the stack's eight-byte slots.
    explicit ArgumentList(const ArgumentSlot *slots)
        : list_{const_cast<ArgumentSlot *>(slots), nullptr, nullptr, 0, 0} {}
    char *get() {
        return reinterpret_cast<char *>(&list_);
    }

  private:
    struct List {
        void *stack;
        void *generalTop;
        void *vectorTop;
        int generalOffset;
        int vectorOffset;
    } list_;
};
#endif

} // namespace objc
