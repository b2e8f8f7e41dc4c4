#include "runtime/live_objects.hpp"

#include "objc/class_builder.hpp"
#include "runtime/lasting.hpp"

#include <mutex>
#include <unordered_map>

namespace sim {
namespace {

struct Count {
    std::mutex mutex;
    std::unordered_map<objc::Class, long> alive;
};

using AllocateFunction = objc::id (*)(objc::Class self, objc::SEL selector, void *zone);
AllocateFunction originalAllocate = nullptr;

objc::id Allocate(objc::Class self, objc::SEL selector, void *zone) {
    const objc::id made = originalAllocate(self, selector, zone);
    auto &count = Lasting<Count>();
    const std::lock_guard lock(count.mutex);
    ++count.alive[objc::object_getClass(made)];
    return made;
}

} // namespace

void InstallObjectCount() {
    const objc::Method method =
        class_getInstanceMethod(objc::MetaclassOf(objc_getClass("NSObject")), objc::Selector<"allocWithZone:">());
    originalAllocate =
        reinterpret_cast<AllocateFunction>(method_setImplementation(method, reinterpret_cast<objc::IMP>(&Allocate)));
}

void CountGone(objc::Class cls) {
    auto &count = Lasting<Count>();
    const std::lock_guard lock(count.mutex);
    // Classes with an allocation of their own were not counted when they came.
    if (const auto found = count.alive.find(cls); found != count.alive.end() && found->second > 0) {
        --found->second;
    }
}

long LiveObjects(objc::Class cls) {
    auto &count = Lasting<Count>();
    const std::lock_guard lock(count.mutex);
    const auto found = count.alive.find(cls);
    return found != count.alive.end() ? found->second : 0;
}

} // namespace sim
