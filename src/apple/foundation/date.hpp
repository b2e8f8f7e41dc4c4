#pragma once
// NSDate and NSLocale.

#include "apple/foundation/string.hpp"

namespace ns {

struct Locale : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSLocale";

    static Locale currentLocale() {
        return objc::SendClass<Locale, "currentLocale", Locale>();
    }
};

struct Date : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSDate";

    static Date date() {
        return objc::SendClass<Date, "date", Date>();
    }
    String descriptionWithLocale(Locale locale) const {
        return objc::Send<"descriptionWithLocale:", String>(*this, locale);
    }
};

} // namespace ns
