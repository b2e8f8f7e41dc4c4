#pragma once
// How much of a text fits into a cell: the longest prefix that does, found with few measurements.
//
// A longer prefix is mostly as tall or taller, so halving finds where prefixes stop to fit. Mostly, because
// - the first half of a character may be taller than the whole (a joined emoji begins with an emoji), and an empty last
//   line may be taller than one with letters. So halving tries prefixes that end with a character and no blank; those
//   in between are tried when the edge is known;
// - where letters change their shape or words are told by a dictionary, one more letter may take less room. There a few
//   characters beyond the edge are tried too.
// Heights that rise and fall in yet other ways (blanks and marks alone, in fonts of different heights) are not
// followed: a fitting prefix is found, perhaps not the longest.
//
// https://developer.apple.com/documentation/foundation/nsstring tells what counts as one character.

#include "apple/foundation/string.hpp"

#include <algorithm>
#include <bit>

namespace corvel {

struct TitleFit {
    /// UTF-16 units of the text that the title shows.
    unsigned long length;
    /// Whether that is less than the text holds, or does not fit even so.
    bool shortened;
};

/// No idea of where the edge may be.
inline constexpr auto kNoGuess = [](unsigned long) { return 0UL; };

/// Searches one text; Fits is a function of a prefix's length in UTF-16 units, and each call of it is a measurement.
template <class Fits, class Guess> class TitleSearch {
  public:
    TitleSearch(ns::String text, const Fits &fits, const Guess &guess)
        : text_(text), fits_(fits), guess_(guess), whole_(text.length()) {}

    TitleFit Run() {
        if (whole_ == 0 || Gallop()) {
            return {whole_, false};
        }
        TryGuess();
        do {
            Halve();
        } while (StepBeyondEdge());
        return {std::max(LongestAtEdge(), 1UL), true};
    }

  private:
    /// Most cells show fewer units: a text of any length costs little more to fit than this many.
    static constexpr unsigned long kFirstProbe = 256;
    /// Longer characters (a base under marks without end) and longer runs of blanks are cut anywhere.
    static constexpr unsigned long kLongestRun = 64;
    /// How many characters beyond the edge are tried in scripts of changing shapes.
    static constexpr unsigned long kAhead = 4;

    /// White space, line breaks, control and format characters.
    static bool IsBlank(char16_t unit) {
        return unit <= u' ' || (unit >= 0x7f && unit <= 0xa0) || unit == 0xad || (unit >= 0x2000 && unit <= 0x200f) ||
               (unit >= 0x2028 && unit <= 0x202f) || (unit >= 0x205f && unit <= 0x206f) || unit == 0x3000 ||
               unit == 0xfeff;
    }

    /// Units of scripts with joining letters, with conjuncts, or without spaces between words.
    static bool HasChangingShapes(char16_t unit) {
        return (unit >= 0x600 && unit <= 0x18af) || (unit >= 0xfb50 && unit <= 0xfdff) ||
               (unit >= 0xfe70 && unit <= 0xfefc);
    }

    bool Measure(unsigned long length) {
        ++measurements_;
        return fits_(length);
    }

    /// Of the promised number, those within one character not counted.
    unsigned long MeasurementsLeft() const {
        const auto promised = (2 * static_cast<unsigned long>(std::bit_width(whole_) - 1)) + 4;
        return promised - std::min(promised, measurements_);
    }

    /// The first place at or behind `index` where a prefix is to end: behind a character that is no blank. 0 when only
    /// blanks follow.
    unsigned long EndFrom(unsigned long index) const {
        for (unsigned long at = index; at <= whole_;) {
            const ns::Range character = text_.rangeOfComposedCharacterSequenceAtIndex(at - 1);
            const unsigned long end = character.location + character.length;
            if (character.length > kLongestRun || at > index + kLongestRun) {
                return index;
            }
            if (!IsBlank(text_.characterAtIndex(end - 1))) {
                return end;
            }
            at = end + 1;
        }
        return 0;
    }

    /// Such a place between low and high, near their middle if possible; 0 when there is none.
    unsigned long EndBetween() const {
        for (unsigned long middle = low_ + ((high_ - low_) / 2); middle > low_; middle = low_ + ((middle - low_) / 2)) {
            const unsigned long end = EndFrom(middle);
            if (end != 0 && end < high_) {
                return end;
            }
        }
        return 0;
    }

    /// Finds a prefix that does not fit, at growing lengths; true when the whole text fits.
    bool Gallop() {
        for (unsigned long probe = kFirstProbe;; probe *= 2) {
            const unsigned long end = probe < whole_ ? EndFrom(probe) : 0;
            high_ = end != 0 ? end : whole_;
            if (!Measure(high_)) {
                limit_ = high_;
                return false;
            }
            low_ = high_;
            if (low_ == whole_) {
                return true;
            }
        }
    }

    /// Moves both ends to where the edge is guessed to be, as far as the guess is right: it costs two measurements, and
    /// halving alone would take one for each doubling of the length.
    void TryGuess() {
        const unsigned long guess = guess_(high_);
        for (unsigned long at = guess; at > low_ && at < high_; at = low_ + 1) {
            const unsigned long end = EndFrom(at);
            if (end == 0 || end >= high_) {
                return;
            }
            (Measure(end) ? low_ : high_) = end;
            if (at != guess) {
                return;
            }
        }
    }

    void Halve() {
        while (const unsigned long middle = EndBetween()) {
            (Measure(middle) ? low_ : high_) = middle;
        }
    }

    /// Looks for a prefix a few characters beyond the edge that fits although the edge does not, as far as the promised
    /// number of measurements goes, and moves the edge there.
    bool StepBeyondEdge() {
        const auto needed = static_cast<unsigned long>(std::bit_width(limit_ - low_));
        unsigned long end = high_;
        for (unsigned long i = 0; i < kAhead && end < limit_ && HasChangingShapes(text_.characterAtIndex(end - 1));
             ++i) {
            end = EndFrom(end + 1);
            if (needed >= MeasurementsLeft() || end == 0 || end >= limit_) {
                return false;
            }
            if (Measure(end)) {
                low_ = end;
                high_ = limit_;
                return true;
            }
        }
        return false;
    }

    /// Between low and high lie blanks, then one character's units but the last: the longest of those prefixes that
    /// fits, or low.
    unsigned long LongestAtEdge() {
        unsigned long blanksEnd = low_;
        while (blanksEnd + 1 < high_ && IsBlank(text_.characterAtIndex(blanksEnd))) {
            ++blanksEnd;
        }
        const unsigned long left = MeasurementsLeft();
        const unsigned long length = LongestBetween(blanksEnd, high_, kLongestRun);
        return length > blanksEnd ? length : LongestBetween(low_, blanksEnd + 1, left);
    }

    /// The longest prefix that fits and is shorter than tooLong, or `low`. Once there are no more than so many, they
    /// are tried one by one: a blank may be taller than the next one.
    unsigned long LongestBetween(unsigned long low, unsigned long tooLong, unsigned long most) {
        while (tooLong - low > most + 1) {
            const unsigned long middle = low + ((tooLong - low) / 2);
            (Measure(middle) ? low : tooLong) = middle;
            most -= std::min(most, 1UL);
        }
        do {
            --tooLong;
        } while (tooLong > low && !Measure(tooLong));
        return tooLong;
    }

    ns::String text_;
    const Fits &fits_;
    const Guess &guess_;
    unsigned long whole_;
    unsigned long low_ = 0;   ///< fits
    unsigned long high_ = 0;  ///< does not
    unsigned long limit_ = 0; ///< the prefix that did not fit first
    unsigned long measurements_ = 0;
};

/// The whole text when it fits (an empty one does), else the longest shorter prefix that fits, as if each were measured
/// from the longest down; when none fits, the first unit. Measures at most 2 * log2(length) + 4 prefixes and those that
/// end within one character. `guess` is asked once a prefix of that length did not fit, the last one measured: about
/// how many units may, 0 for no idea. A good guess saves most measurements, a bad one changes nothing else.
template <class Fits, class Guess = decltype(kNoGuess)>
TitleFit FitTitle(ns::String text, const Fits &fits, const Guess &guess = kNoGuess) {
    return TitleSearch<Fits, Guess>(text, fits, guess).Run();
}

} // namespace corvel
