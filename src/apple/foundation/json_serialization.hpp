#pragma once
// NSJSONSerialization.

#include "apple/foundation/data.hpp"

using NSJSONReadingOptions = unsigned long;
enum : NSJSONReadingOptions { NSJSONReadingMutableContainers = 1 << 0, NSJSONReadingFragmentsAllowed = 1 << 2 };

using NSJSONWritingOptions = unsigned long;
enum : NSJSONWritingOptions {
    NSJSONWritingPrettyPrinted = 1 << 0,
    NSJSONWritingSortedKeys = 1 << 1,
    NSJSONWritingFragmentsAllowed = 1 << 2,
    NSJSONWritingWithoutEscapingSlashes = 1 << 3,
};

namespace ns {

struct JSONSerialization : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSJSONSerialization";

    /// The JSON text as UTF-8. Raises when the object holds what JSON has no form for; nil with an error when a string
    /// cannot be written as UTF-8. The error may be null.
    static Data dataWithJSONObject(Object object, NSJSONWritingOptions options, Object *error) {
        return objc::SendClass<JSONSerialization, "dataWithJSONObject:options:error:", Data>(object, options, error);
    }
    /// What the text says, nil with an error when it is no JSON or nests more than 512 levels deep. The data must not
    /// be nil, the error may be null.
    static Object JSONObjectWithData(Data data, NSJSONReadingOptions options, Object *error) {
        return objc::SendClass<JSONSerialization, "JSONObjectWithData:options:error:", Object>(data, options, error);
    }
};

} // namespace ns
