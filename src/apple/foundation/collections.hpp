#pragma once
// NSArray, NSSet and NSDictionary.

#include "apple/foundation/object.hpp"

namespace ns {

struct Array : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSArray";

    unsigned long count() const {
        return objc::Send<"count", unsigned long>(*this);
    }
    Object objectAtIndex(unsigned long index) const {
        return objc::Send<"objectAtIndex:", Object>(*this, index);
    }
    Object firstObject() const {
        return objc::Send<"firstObject", Object>(*this);
    }
};

/// An array whose elements are seen as T; a range over them. The number of elements is asked for once, so a loop may
/// not shorten the array that it walks over. T may be incomplete still: a view lists others of its kind.
template <class T> struct ArrayOf : Array {
    using Array::Array;
    // NOLINTNEXTLINE(google-explicit-constructor): whoever names the element's type vouches for it
    ArrayOf(Array array) : Array(array.pointer) {}

    class Iterator {
      public:
        Iterator(Array array, unsigned long index) : array_(array), index_(index) {}
        T operator*() const {
            return objc::As<T>(array_.objectAtIndex(index_));
        }
        Iterator &operator++() {
            ++index_;
            return *this;
        }
        bool operator!=(const Iterator &other) const {
            return index_ != other.index_;
        }

      private:
        Array array_;
        unsigned long index_;
    };
    Iterator begin() const {
        return {*this, 0};
    }
    Iterator end() const {
        return {*this, count()};
    }
};

struct MutableArray : Array {
    using Array::Array;
    static constexpr const char *kClassName = "NSMutableArray";

    static MutableArray array() {
        return objc::SendClass<MutableArray, "array", MutableArray>();
    }
    void addObject(Object object) const {
        objc::Send<"addObject:", void>(*this, object);
    }
};

struct Set : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSSet";

    unsigned long count() const {
        return objc::Send<"count", unsigned long>(*this);
    }
    ArrayOf<Object> allObjects() const {
        return objc::Send<"allObjects", Array>(*this);
    }
};

struct Dictionary : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSDictionary";

    static Dictionary dictionaryWithObject(Object object, Object key) {
        return objc::SendClass<Dictionary, "dictionaryWithObject:forKey:", Dictionary>(object, key);
    }
    Object objectForKey(Object key) const {
        return objc::Send<"objectForKey:", Object>(*this, key);
    }
    ArrayOf<Object> allKeys() const {
        return objc::Send<"allKeys", Array>(*this);
    }
};

struct MutableDictionary : Dictionary {
    using Dictionary::Dictionary;
    static constexpr const char *kClassName = "NSMutableDictionary";

    static MutableDictionary dictionary() {
        return objc::SendClass<MutableDictionary, "dictionary", MutableDictionary>();
    }
    void setObject(Object object, Object key) const {
        objc::Send<"setObject:forKey:", void>(*this, object, key);
    }
};

} // namespace ns
