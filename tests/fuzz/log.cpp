// The log: any format with any arguments, onto any buffer, at most as much as the log holds.

#include "apple/foundation/number.hpp"
#include "diagnostics/debug_log.hpp"
#include "input.hpp"
#include "platform.hpp"
#include "preferences/preferences.hpp"

namespace {

using namespace corvel;

FormatArgument ArgumentOf(fuzz::Input &input) {
    switch (input.Take<std::uint8_t>() % 4) {
    case 0:
        return {input.TakeString()};
    case 1:
        return {input.Take<long long>()};
    case 2:
        // NOLINTNEXTLINE(performance-no-int-to-ptr): an address that must never be followed
        return {reinterpret_cast<const void *>(input.Take<std::uintptr_t>())};
    default:
        return {ns::String{}};
    }
}

/// What a buffer may be when a line comes: text of any length, or what an import left in its place.
void StoreBuffer(fuzz::Input &input) {
    const auto store = ns::UserDefaults::standardUserDefaults();
    const auto kind = input.Take<std::uint8_t>();
    if (kind < 16) {
        const ns::String part = input.TakeString();
        const auto whole = ns::New<ns::MutableString>();
        for (int times = 0; times < kind * 25; ++times) {
            whole->appendString(part);
        }
        store.setObject(whole.get(), kLogBuffer.key());
    } else if (kind < 32) {
        store.setFloat(input.Take<float>(), kLogBuffer.key());
    } else {
        store.removeObjectForKey(kLogBuffer.key());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    fuzz::InstallPlatform();
    const sim::AutoreleasePool pool;
    fuzz::Input input(bytes, size);
    ns::UserDefaults::standardUserDefaults().setBool(true, kLogEnabled.key());
    StoreBuffer(input);
    const FormatArgument all[] = {ArgumentOf(input), ArgumentOf(input), ArgumentOf(input)};
    const std::span<const FormatArgument> arguments(all, input.Take<std::uint8_t>() % 4);
    const ns::String format = sim::StringOf(input.TakeUnits(size));
    const objc::Ref<ns::String> line = FormatArguments(format, arguments);
    fuzz::Require(bool(line), "no line");
    fuzz::Require(format.containsString("%"_ns) || line->isEqualToString(format), "a text without conversions changed");
    // What a user wrote is expanded again when an outer line carries it.
    fuzz::Require(bool(FormatArguments(line, {})), "no second line");
    DebugLogArguments(format, arguments);
    const ns::String log = kLogBuffer.Read();
    constexpr unsigned long kMost = 40000;
    fuzz::Require(log.length() > 0 && log.length() <= kMost, "the log's length");
    fuzz::Require(line->length() >= kMost || sim::UnitsOf(log).ends_with(sim::UnitsOf(line) + u"\n"), "a line is lost");
    return 0;
}
