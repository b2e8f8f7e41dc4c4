#include "runtime/associated_objects.hpp"

#include "objc/ref.hpp"
#include "runtime/lasting.hpp"

#include <mutex>
#include <unordered_map>
#include <utility>

namespace sim {
namespace {

struct Association {
    objc::id value = nullptr;
    objc_AssociationPolicy policy = OBJC_ASSOCIATION_ASSIGN;
};
using Associations = std::unordered_map<const void *, Association>;

struct Table {
    std::mutex mutex;
    std::unordered_map<objc::id, Associations> owners;
};

objc::id Hold(objc::id value, objc_AssociationPolicy policy) {
    switch (policy) {
    case OBJC_ASSOCIATION_RETAIN_NONATOMIC:
    case OBJC_ASSOCIATION_RETAIN:
        return objc::Retain(value);
    case OBJC_ASSOCIATION_COPY_NONATOMIC:
    case OBJC_ASSOCIATION_COPY:
        return objc::Send<"copy", objc::Object>(objc::Object{value}).pointer;
    default:
        return value;
    }
}

void Drop(Association association) {
    if (association.policy != OBJC_ASSOCIATION_ASSIGN) {
        objc::Release(association.value);
    }
}

} // namespace

void ReleaseAssociatedObjects(objc::id owner) {
    auto &table = Lasting<Table>();
    for (;;) {
        Associations gone;
        {
            const std::lock_guard lock(table.mutex);
            if (auto node = table.owners.extract(owner)) {
                gone = std::move(node.mapped());
            }
        }
        if (gone.empty()) {
            return;
        }
        // Outside the lock: a value's dealloc may attach and detach objects itself, even on this owner.
        for (const auto &[key, association] : gone) {
            Drop(association);
        }
    }
}

} // namespace sim

extern "C" {

void objc_setAssociatedObject(objc::id object, const void *key, objc::id value, objc_AssociationPolicy policy) {
    if (object == nullptr) {
        return;
    }
    const sim::Association fresh{sim::Hold(value, policy), policy};
    sim::Association old;
    {
        auto &table = sim::Lasting<sim::Table>();
        const std::lock_guard lock(table.mutex);
        if (value != nullptr) {
            old = std::exchange(table.owners[object][key], fresh);
        } else if (const auto owner = table.owners.find(object); owner != table.owners.end()) {
            if (auto node = owner->second.extract(key)) {
                old = node.mapped();
            }
            if (owner->second.empty()) {
                table.owners.erase(owner);
            }
        }
    }
    sim::Drop(old);
}

objc::id objc_getAssociatedObject(objc::id object, const void *key) {
    sim::Association found;
    bool atomic = false;
    {
        auto &table = sim::Lasting<sim::Table>();
        const std::lock_guard lock(table.mutex);
        const auto owner = table.owners.find(object);
        if (owner != table.owners.end() && owner->second.contains(key)) {
            found = owner->second[key];
        }
        atomic = found.policy == OBJC_ASSOCIATION_RETAIN || found.policy == OBJC_ASSOCIATION_COPY;
        if (atomic) {
            objc::Retain(found.value); // atomic policies hand out a value that outlives a replacement elsewhere
        }
    }
    return atomic ? objc::Send<"autorelease", objc::Object>(objc::Object{found.value}).pointer : found.value;
}

} // extern "C"
