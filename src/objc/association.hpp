#pragma once
// Associated objects: state that travels on the object it belongs to.

#include "objc/object.hpp"

namespace objc {

/// The key of an association. Its address is the identity, its text names it for readers.
struct AssociationKey {
    const char *name;
};

/// Attaches a value (retained until replaced or until the owner is gone); nil detaches.
inline void SetAssociated(Object owner, const AssociationKey &key, Object value) {
    objc_setAssociatedObject(owner.pointer, &key, value.pointer, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
}

/// The value attached under the key, as T; nil when there is none.
template <Handle T = Object> T GetAssociated(Object owner, const AssociationKey &key) {
    return owner ? T{objc_getAssociatedObject(owner.pointer, &key)} : T{};
}

} // namespace objc
