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
    static Date dateWithTimeIntervalSince1970(double seconds) {
        return objc::SendClass<Date, "dateWithTimeIntervalSince1970:", Date>(seconds);
    }
    static Date dateWithTimeIntervalSinceReferenceDate(double seconds) {
        return objc::SendClass<Date, "dateWithTimeIntervalSinceReferenceDate:", Date>(seconds);
    }
    double timeIntervalSince1970() const {
        return objc::Send<"timeIntervalSince1970", double>(*this);
    }
    double timeIntervalSinceReferenceDate() const {
        return objc::Send<"timeIntervalSinceReferenceDate", double>(*this);
    }
    String descriptionWithLocale(Locale locale) const {
        return objc::Send<"descriptionWithLocale:", String>(*this, locale);
    }
};

} // namespace ns
