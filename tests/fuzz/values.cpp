// Hex colours, and numbers that are stored as texts or otherwise: every read gives something of use.

#include "apple/foundation/number.hpp"
#include "input.hpp"
#include "matrix/colors.hpp"
#include "platform.hpp"
#include "preferences/preferences.hpp"
#include "settings/color_components.hpp"

#include <cmath>

namespace {

using namespace corvel;

/// The text as a colour is black or what its first digits say; the hex text of it means the same colour.
void CheckColor(ns::String text) {
    const objc::Ref<ns::String> hex = HexText(ColorFromHex(text, 0.5));
    const std::u16string units = sim::UnitsOf(hex);
    fuzz::Require(units.size() == 7 && units[0] == u'#', "a hex text of another shape");
    fuzz::Require(units.find_first_not_of(u"0123456789ABCDEF", 1) == std::u16string::npos, "digits");
    fuzz::Require(HexText(ColorFromHex(hex, 1))->isEqualToString(hex), "a hex text that means another colour");
    const std::u16string given = sim::UnitsOf(text);
    if (given.size() == 7 && given[0] == u'#' && given.find_first_not_of(u"0123456789ABCDEF", 1) == given.npos) {
        fuzz::Require(given == units, "a colour that is not the one written");
    }
}

void CheckRead(const BoolPreference &preference) {
    static_cast<void>(preference.Read());
}
void CheckRead(const FloatPreference &preference) {
    const double value = preference.Read();
    fuzz::Require(value > 0 && value <= 400, "a number outside what is usable");
    fuzz::Require(std::isfinite(preference.ReadForSlider()), "no number for a slider");
}
void CheckRead(const PlacePreference &preference) {
    fuzz::Require(std::abs(preference.Read(844)) <= 100'000, "a place out of reach");
}
void CheckRead(const IntegerPreference &preference) {
    const long value = preference.Clamped(preference.Read());
    fuzz::Require(value >= preference.least() && value <= preference.most(), "an integer out of range");
}
void CheckRead(const StringPreference &preference) {
    fuzz::Require(preference.Read().length() > 0 || preference.fallback().length() == 0, "an empty text");
}

ns::Object ValueOf(fuzz::Input &input, ns::String text) {
    switch (input.Take<std::uint8_t>() % 5) {
    case 0:
        return ns::Number::numberWithDouble(input.Take<double>());
    case 1:
        return ns::Number::numberWithLong(input.Take<long>());
    case 2:
        return ns::Dictionary::dictionaryWithObject(text, "key"_ns);
    default:
        return text;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    fuzz::InstallPlatform();
    const sim::AutoreleasePool pool;
    fuzz::Input input(bytes, size);
    const auto kind = input.Take<std::uint8_t>();
    fuzz::Input numbers(bytes, size);
    const bool isPlain = (kind & 1) != 0;
    const std::span<const std::uint8_t> rest = isPlain ? input.TakeRest() : std::span<const std::uint8_t>{};
    const ns::String text =
        isPlain ? sim::StringOf(std::u16string(rest.begin(), rest.end())) : sim::StringOf(input.TakeUnits(size));
    CheckColor(text);
    const ns::Object value = ValueOf(numbers, text);
    const auto store = ns::UserDefaults::standardUserDefaults();
    int skipped = numbers.Take<std::uint8_t>() % 28;
    VisitPreferences([&](const auto &preference) {
        if (skipped-- == 0) {
            store.setObject(value, preference.key());
            CheckRead(preference);
            store.removeObjectForKey(preference.key());
        }
    });
    return 0;
}
