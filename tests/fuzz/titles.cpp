// Fitting titles, held against the search one by one: any text, cut at any place, and measured for real.

#include "apple/uikit/font.hpp"
#include "apple/uikit/text_measuring.hpp"
#include "input.hpp"
#include "matrix/title_fitting.hpp"
#include "platform.hpp"

#include <bit>
#include <limits>
#include <vector>

namespace {

using namespace corvel;

constexpr std::size_t kLongestMeasured = 48;
/// Longer characters and longer runs of blanks are cut anywhere.
constexpr unsigned long kLongestRun = 64;

/// The longest prefix that fits, from the longest down; 1 when none does.
unsigned long OneByOne(const std::vector<bool> &fits) {
    unsigned long length = fits.size() - 1;
    while (length > 1 && !fits[length]) {
        --length;
    }
    return length;
}

/// A text of which the first units fit, and no longer prefix.
void CheckEdge(const std::u16string &units, unsigned long edge) {
    unsigned long measured = 0;
    const TitleFit fit = FitTitle(sim::StringOf(units), [&](unsigned long length) {
        fuzz::Require(length >= 1 && length <= units.size(), "a prefix that is none is measured");
        ++measured;
        return length <= edge;
    });
    const bool whole = edge >= units.size();
    fuzz::Require(fit.length == (whole ? units.size() : std::max(edge, 1UL)), "another prefix than one by one");
    fuzz::Require(fit.shortened == !whole, "the mark of a shortened title");
    fuzz::Require(measured <= 2UL * static_cast<unsigned>(std::bit_width(units.size())) + 4 + kLongestRun,
                  "more measurements than promised");
}

/// A text as the platform lays it out. Where no longer prefix is lower than a shorter one, the search finds what one by
/// one finds; where one is, it finds a prefix that fits.
void CheckMeasured(const std::u16string &units, cg::Size box, double fontSize) {
    const ns::String text = sim::StringOf(units);
    const auto attributes =
        ns::Dictionary::dictionaryWithObject(ui::Font::systemFontOfSize(fontSize), NSFontAttributeName);
    const auto fitsBox = [&](unsigned long length) {
        const cg::Rect bounds =
            ui::BoundingRect(text.substringToIndex(length), {box.width, std::numeric_limits<double>::max()},
                             NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingUsesFontLeading, attributes);
        return bounds.size.height <= box.height;
    };
    std::vector<bool> fits(units.size() + 1, true);
    for (unsigned long length = 1; length <= units.size(); ++length) {
        fits[length] = fitsBox(length);
    }
    const TitleFit fit = FitTitle(text, [&](unsigned long length) { return bool{fits[length]}; });
    fuzz::Require(fit.length <= 1 || fits[fit.length], "a prefix that does not fit");
    if (std::is_sorted(fits.rbegin(), fits.rend())) {
        fuzz::Require(fit.length == OneByOne(fits), "another prefix than one by one, measured");
        fuzz::Require(fit.shortened == !fits.back(), "the mark of a shortened title, measured");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    fuzz::InstallPlatform();
    const sim::AutoreleasePool pool;
    fuzz::Input input(bytes, size);
    const auto kind = input.Take<std::uint8_t>();
    const auto first = input.Take<std::uint16_t>();
    constexpr std::uint8_t kMeasured = 8; // few, for measuring takes a hundred times as long
    if (kind < kMeasured) {
        const cg::Size box{4.0 + (kind * 16), (first & 0xff) * 1.0};
        CheckMeasured(input.TakeUnits(kLongestMeasured), box, 6.0 + (first >> 12));
    } else {
        const std::u16string units = input.TakeUnits(size);
        CheckEdge(units, first % (units.size() + 2));
    }
    return 0;
}
