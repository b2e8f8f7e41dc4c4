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

struct MutableArray : Array {
    using Array::Array;
    static constexpr const char *kClassName = "NSMutableArray";

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
    Array allObjects() const {
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
    Array allKeys() const {
        return objc::Send<"allKeys", Array>(*this);
    }
};

struct MutableDictionary : Dictionary {
    using Dictionary::Dictionary;
    static constexpr const char *kClassName = "NSMutableDictionary";

    void setObject(Object object, Object key) const {
        objc::Send<"setObject:forKey:", void>(*this, object, key);
    }
};

} // namespace ns
