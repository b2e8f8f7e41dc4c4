#pragma once
// Where all controls and gesture recognisers of the overlay send their actions.

#include "apple/foundation/object.hpp"

namespace corvel {

/// The class object of NSObject: the handlers are class methods of the root class, so no handler object exists.
inline ns::Object ActionTarget() {
    return ns::Object{objc::AsObject(objc::ClassOf<ns::Object>())};
}

} // namespace corvel
