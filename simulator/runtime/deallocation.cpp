#include "runtime/deallocation.hpp"

#include "apple/foundation/object.hpp"
#include "runtime/associated_objects.hpp"
#include "runtime/lasting.hpp"
#include "runtime/live_objects.hpp"
#include "runtime/native_class.hpp"
#include "runtime/replace_method.hpp"
#include "runtime/weak_references.hpp"

#include <atomic>
#include <mutex>
#include <unordered_set>

namespace sim {
namespace {

/// The objects whose dealloc has begun and not ended. Counting their references does nothing any more.
/// https://github.com/apple-oss-distributions/objc4 (rootRetain, rootRelease)
class Going {
  public:
    void Begin(objc::id object) {
        const std::lock_guard lock(mutex_);
        objects_.insert(object);
        count_ = objects_.size();
    }
    void End(objc::id object) {
        const std::lock_guard lock(mutex_);
        objects_.erase(object);
        count_ = objects_.size();
    }
    bool Has(objc::id object) {
        if (count_ == 0) {
            return false; // nearly always, and without a lock
        }
        const std::lock_guard lock(mutex_);
        return objects_.contains(object);
    }

  private:
    std::mutex mutex_;
    std::unordered_set<objc::id> objects_;
    std::atomic<std::size_t> count_ = 0;
};

Original<void, objc::id> originalDealloc = nullptr;
Original<objc::id, objc::id> originalRetain = nullptr;

objc::id Retain(objc::id self, objc::SEL selector) {
    return Lasting<Going>().Has(self) ? self : originalRetain(self, selector);
}

void Release(objc::id self, objc::SEL) {
    if (!Lasting<Going>().Has(self) && ReleaseWasLast(self)) {
        Lasting<Going>().Begin(self);
        objc::Send<"dealloc", void>(objc::Object{self});
    }
}

void Dealloc(objc::id self, objc::SEL selector) {
    // Class objects are owners too, but nothing ever frees them.
    if (class_isMetaClass(objc::object_getClass(self)) == 0) {
        ReleaseAssociatedObjects(self);
        ClearWeakReferences(self); // some classes count for themselves and send dealloc without NSObject's release
        CountGone(objc::object_getClass(self));
    }
    Lasting<Going>().End(self);
    originalDealloc(self, selector);
}

} // namespace

void InstallDeallocationHooks() {
    originalRetain = ReplaceMethod("NSObject", objc::Selector<"retain">(), &Retain);
    ReplaceMethod("NSObject", objc::Selector<"release">(), &Release);
    originalDealloc = ReplaceMethod("NSObject", objc::Selector<"dealloc">(), &Dealloc);
    auto object = Class<>::Existing("NSObject");
    object.Method<"allowsWeakReference">([](ns::Object self) { return !Lasting<Going>().Has(self.pointer); });
    object.Method<"retainWeakReference">([](ns::Object self) {
        const bool alive = !Lasting<Going>().Has(self.pointer);
        if (alive) {
            objc::Retain(self.pointer);
        }
        return alive;
    });
}

} // namespace sim
