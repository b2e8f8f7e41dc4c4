#pragma once
// All keys of the store that are the library's own.

#include "preferences/preferences.hpp"

namespace corvel {

/// Whether a key is the library's: it begins with the prefix.
inline bool IsOwnKey(ns::String key) {
    return key.hasPrefix(kKeyPrefix);
}

/// Calls visit(key, value) for each of the store's present keys that is the library's; the visit may remove it.
template <class Visit> void VisitOwnKeys(ns::UserDefaults store, Visit visit) {
    const objc::Ref<ns::Dictionary> all = store.dictionaryRepresentation();
    const objc::Ref<ns::Array> keys = all->allKeys();
    for (const ns::String key : ns::ArrayOf<ns::String>(keys)) {
        if (IsOwnKey(key)) {
            visit(key, all->objectForKey(key));
        }
    }
}

} // namespace corvel
