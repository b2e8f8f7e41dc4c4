#include "runtime/weak_references.hpp"

#include "objc/ref.hpp"
#include "runtime/lasting.hpp"

#include <algorithm>
#include <mutex>
#include <unordered_map>
#include <vector>

extern "C" {
/// Foundation's reference count: takes one off; true when there was none left to take.
unsigned char NSDecrementExtraRefCountWasZero(objc::id object);
}

namespace sim {
namespace {

struct Table {
    // Held while a count drops to zero, so that nobody can revive an object through a weak reference meanwhile.
    // Recursive: retain may be a host's override that runs code of its own.
    std::recursive_mutex mutex;
    std::unordered_map<objc::id, std::vector<objc::id *>> locations;
};

void Register(Table &table, objc::id *location, objc::id object) {
    *location = object;
    if (object != nullptr) {
        table.locations[object].push_back(location);
    }
}

void Unregister(Table &table, objc::id *location) {
    const auto found = table.locations.find(*location);
    if (found != table.locations.end()) {
        std::erase(found->second, location);
        if (found->second.empty()) {
            table.locations.erase(found);
        }
    }
}

} // namespace

void ClearWeakReferences(objc::id object) {
    auto &table = Lasting<Table>();
    const std::lock_guard lock(table.mutex);
    if (const auto node = table.locations.extract(object)) {
        for (objc::id *location : node.mapped()) {
            *location = nullptr;
        }
    }
}

bool ReleaseWasLast(objc::id object) {
    auto &table = Lasting<Table>();
    const std::lock_guard lock(table.mutex);
    if (NSDecrementExtraRefCountWasZero(object) == 0) {
        return false;
    }
    ClearWeakReferences(object);
    return true;
}

} // namespace sim

extern "C" {

objc::id objc_initWeak(objc::id *location, objc::id value) {
    auto &table = sim::Lasting<sim::Table>();
    const std::lock_guard lock(table.mutex);
    sim::Register(table, location, value);
    return value;
}

objc::id objc_storeWeak(objc::id *location, objc::id value) {
    auto &table = sim::Lasting<sim::Table>();
    const std::lock_guard lock(table.mutex);
    sim::Unregister(table, location);
    sim::Register(table, location, value);
    return value;
}

objc::id objc_loadWeakRetained(objc::id *location) {
    auto &table = sim::Lasting<sim::Table>();
    const std::lock_guard lock(table.mutex);
    return objc::Retain(*location);
}

void objc_copyWeak(objc::id *to, objc::id *from) {
    auto &table = sim::Lasting<sim::Table>();
    const std::lock_guard lock(table.mutex);
    sim::Register(table, to, *from);
}

void objc_destroyWeak(objc::id *location) {
    auto &table = sim::Lasting<sim::Table>();
    const std::lock_guard lock(table.mutex);
    sim::Unregister(table, location);
    *location = nullptr;
}

} // extern "C"
