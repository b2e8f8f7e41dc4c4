#pragma once
// The whole configuration, to the pasteboard and from it. Main thread only; both answer with a toast.

#include "objc/runtime.hpp"

namespace corvel {

/// `dm_exp`: puts every key of the library with its value on the pasteboard, as one string.
void HandleExport(objc::Class, objc::SEL);

/// `dm_imp`: writes the keys of the configuration on the pasteboard to the store, over what is there. Keys without the
/// prefix and values that the store cannot hold are left out; keys that the configuration lacks stay.
void HandleImport(objc::Class, objc::SEL);

} // namespace corvel
