#include "diagnostics/debug_log.hpp"

#include "apple/foundation/date.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "objc/guard.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"

namespace corvel {
namespace {

/// In UTF-16 units.
constexpr unsigned long kLargestLog = 40000;

void Append(ns::String message) {
    const ns::String date = ns::Date::date().descriptionWithLocale(ns::Locale::currentLocale());
    const auto line = FormatString("[%@] %@\n"_ns, date, message);
    ns::String log = ReadStringPreference(keys::LogBuffer(), ""_ns).stringByAppendingString(line);
    if (log.length() > kLargestLog) {
        // The cut may fall inside a line: no boundary is looked for.
        log = log.substringFromIndex(log.length() - kLargestLog);
    }
    // Not synchronised: the log can wait for the store's own schedule.
    ns::UserDefaults::standardUserDefaults().setObject(log, keys::LogBuffer());
}

} // namespace

void DebugLogArguments(ns::String format, const FormatArgument *arguments, unsigned long count) {
    objc::Guard([&] {
        const auto store = ns::UserDefaults::standardUserDefaults();
        const ns::Object stored = store.objectForKey(keys::LogEnabled());
        if (!stored) {
            store.setBool(false, keys::LogEnabled());
        }
        // Not by ReadBoolPreference: while the log is off a call is to cost no third lookup.
        if (IsScalar(stored) && store.boolForKey(keys::LogEnabled())) {
            Append(FormatArguments(format, arguments, count));
        }
    });
}

} // namespace corvel
