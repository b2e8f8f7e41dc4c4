#include "diagnostics/debug_log.hpp"

#include "apple/foundation/date.hpp"
#include "objc/guard.hpp"
#include "preferences/preferences.hpp"

namespace corvel {
namespace {

/// In UTF-16 units.
constexpr unsigned long kLargestLog = 40000;

void Append(ns::String message) {
    const ns::String date = ns::Date::date().descriptionWithLocale(ns::Locale::currentLocale());
    const ns::String log = kLogBuffer.Read().stringByAppendingString(FormatString("[%@] %@\n"_ns, date, message));
    // Not synchronised: the log can wait for the store's own schedule.
    kLogBuffer.Store(LogTail(log));
}

} // namespace

ns::String LogTail(ns::String text) {
    const unsigned long length = text.length();
    return length > kLargestLog ? text.substringFromIndex(length - kLargestLog) : text;
}

bool IsLogOn() {
    bool on = false;
    objc::Guard([&] {
        const auto store = ns::UserDefaults::standardUserDefaults();
        const ns::Object stored = store.objectForKey(kLogEnabled.key());
        if (!stored) {
            kLogEnabled.StoreInitial();
            return;
        }
        // Not by the preference's Read: while the log is off a call is to cost two lookups.
        on = IsScalar(stored) && store.boolForKey(kLogEnabled.key());
    });
    return on;
}

void DebugLogArguments(ns::String format, std::span<const FormatArgument> arguments) {
    if (IsLogOn()) {
        objc::Guard([&] { Append(FormatArguments(format, arguments)); });
    }
}

} // namespace corvel
