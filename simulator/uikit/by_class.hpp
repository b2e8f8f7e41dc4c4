#pragma once
// What the simulator knows of classes beside their methods.

#include "objc/object.hpp"

#include <map>
#include <string>

namespace sim {

/// Values given to classes by name. A subclass has its superclass's unless it is given one of its own.
template <class T> class ByClass {
  public:
    void Set(const char *className, T value) {
        values_[className] = value;
    }

    /// The value of the object's class; null when it has none or the object is nil.
    const T *Find(objc::Object object) const {
        for (objc::Class cls = objc::object_getClass(object.pointer); cls != nullptr; cls = class_getSuperclass(cls)) {
            if (const auto found = values_.find(class_getName(cls)); found != values_.end()) {
                return &found->second;
            }
        }
        return nullptr;
    }

  private:
    std::map<std::string, T> values_;
};

} // namespace sim
