// What the debug log costs: switched off, which is how users have it, and on with all the text that it holds.

#include "diagnostics/debug_log.hpp"
#include "measure.hpp"
#include "preferences/preferences.hpp"

#include <string>

namespace bench {
namespace {

/// A log of so many UTF-16 units.
objc::Ref<ns::String> LogOf(unsigned long units) {
    std::u16string text;
    while (text.size() < units) {
        text += u"[2026-11-23 12:00:00 +0000] [DY] 弹幕 sent via store\n";
    }
    return ns::String::stringWithCharacters(text.data(), units);
}

constexpr unsigned long kLargest = 40000;

/// A line more in a log of so many units.
void WithLogOf(const std::string &name, unsigned long units) {
    corvel::kLogEnabled.Write(true);
    const objc::Ref<ns::String> log = LogOf(units);
    // The line as it will be, date and all: making it is the platform's work.
    const ns::String line = u"[2026-11-23 12:00:00 +0000] [DY] ✅ sent via store\n"_ns;
    CountPair(
        name, [&] { corvel::kLogBuffer.Store(log); }, [] { corvel::DebugLog(u"[DY] ✅ sent via store"_ns); },
        [&] {
            const auto store = ns::UserDefaults::standardUserDefaults();
            const ns::String longer = store.stringForKey(corvel::kLogBuffer.key()).stringByAppendingString(line);
            const unsigned long length = longer.length();
            store.setObject(length > kLargest ? longer.substringFromIndex(length - kLargest) : longer,
                            corvel::kLogBuffer.key());
        });
    corvel::kLogEnabled.Write(false);
    corvel::kLogBuffer.Remove();
}

} // namespace
} // namespace bench

CORVEL_BENCH BenchLogOff() {
    using namespace bench;
    corvel::kLogEnabled.Write(false);
    const auto arguments = ns::New<ns::Object>();
    CountPair(
        "log-off", [&] { corvel::DebugLog(u"[DY] fragment %p roomId=%@"_ns, arguments, arguments); },
        [] {
            const auto store = ns::UserDefaults::standardUserDefaults();
            store.objectForKey(corvel::kLogEnabled.key());
            store.boolForKey(corvel::kLogEnabled.key());
        });
}

CORVEL_BENCH BenchLogOn() {
    bench::WithLogOf("log-on", bench::kLargest);
}

/// How the cost grows with what the log holds.
CORVEL_BENCH BenchLogGrowth() {
    for (unsigned long units = 0; units <= bench::kLargest; units += 5000) {
        bench::WithLogOf("log-units-" + std::to_string(units), units);
    }
}
