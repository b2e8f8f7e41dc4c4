#include "matrix/title_fitting.hpp"

#include <algorithm>
#include <array>
#include <bit>

// A prefix that is longer is mostly taller, so halving finds where prefixes stop to fit. Mostly, because
// - within a grapheme cluster the shorter prefix may be the taller one: the first half of a joined emoji is an emoji of
//   its own. So only prefixes that end with a cluster are searched, and those within the one cluster at the edge are
//   tried one by one;
// - an empty last line and trailing blanks have the font's height, while what follows may be set in a lower font. So
//   prefixes that end with blanks are left out too and searched when the edge is known;
// - in scripts whose letters take another shape, or whose words are told by a dictionary, one more letter may take up
//   less room. There a few more clusters beyond the edge are tried.
// Heights that rise and fall in yet other ways (form feeds and marks without a base, strewn among blanks and shown in
// fonts of different heights) are not followed: a fitting prefix is found, perhaps not the longest.

namespace corvel {
namespace {

/// No cell shows more than a few hundred units: with the first probe here, a long text costs little more to fit than
/// its one measurement as a whole.
constexpr unsigned long kFirstProbe = 256;
/// How many clusters beyond the edge are tried in scripts of changing shape.
constexpr unsigned long kClustersAhead = 4;
/// A longer cluster (a base under any number of marks, an endless chain of joiners) is halved first.
constexpr unsigned long kLongestClusterTriedWhole = 64;

/// White space, line breaks, control and format characters.
constexpr bool IsBlank(char16_t unit) {
    return unit <= u' ' || (unit >= 0x7f && unit <= 0xa0) || unit == 0xad || unit == 0x1680 || unit == 0x180e ||
           (unit >= 0x2000 && unit <= 0x200f) || (unit >= 0x2028 && unit <= 0x202f) ||
           (unit >= 0x205f && unit <= 0x206f) || unit == 0x3000 || unit == 0xfeff;
}

constexpr bool IsJoiner(char16_t unit) {
    return unit == 0x200c || unit == 0x200d;
}

/// Units of scripts with joining letters, with conjuncts, or without spaces between words.
constexpr bool HasChangingShapes(char16_t unit) {
    return (unit >= 0x600 && unit <= 0x18af) || (unit >= 0xfb50 && unit <= 0xfdff) ||
           (unit >= 0xfe70 && unit <= 0xfefc);
}

class Search {
  public:
    Search(const Utf16Text &text, PrefixFits fits) : text_(text), fits_(fits), high_(text.length) {}

    /// The longest prefix that fits, given that the whole text does not; 0 when none does.
    unsigned long Run() {
        Halve(kFirstProbe);
        while (TryBeyondEdge()) {
            Halve(text_.length);
        }
        return LongestWithinEdge();
    }

  private:
    /// How many more measurements are in the promised number, those within a cluster not counted.
    unsigned long MeasurementsLeft() const {
        const auto allowed = 2 * static_cast<unsigned long>(std::bit_width(text_.length) - 1) + 4;
        return allowed - std::min(allowed, measurements_);
    }

    bool Fits(unsigned long length) {
        ++measurements_;
        return fits_(length);
    }

    /// Whether the prefix ends with a cluster that is no blank; joiners at the cluster's end are left to the blanks.
    bool IsCandidate(unsigned long index) const {
        if (IsBlank(text_[index - 1])) {
            return false;
        }
        unsigned long end = index;
        while (end < text_.length && IsJoiner(text_[end])) {
            ++end;
        }
        return IsGraphemeBoundary(text_, end);
    }

    /// The first candidate from the index on that is less than the limit; 0 when there is none.
    unsigned long CandidateFrom(unsigned long index, unsigned long limit) const {
        for (; index < limit; ++index) {
            if (IsCandidate(index)) {
                return index;
            }
        }
        return 0;
    }

    /// A candidate strictly between low and high, the first one at or beyond the target if possible; 0 when there is
    /// none.
    unsigned long CandidateNear(unsigned long target) const {
        if (const unsigned long next = CandidateFrom(target, high_)) {
            return next;
        }
        for (unsigned long index = target; --index > low_;) {
            if (IsCandidate(index)) {
                return index;
            }
        }
        return 0;
    }

    /// Halves until no candidate is left between low, which fits, and high, which does not.
    void Halve(unsigned long firstTarget) {
        while (high_ - low_ > 1) {
            const unsigned long candidate = CandidateNear(std::min(low_ + (high_ - low_) / 2, firstTarget));
            if (candidate == 0) {
                return;
            }
            firstTarget = text_.length;
            if (Fits(candidate)) {
                low_ = candidate;
            } else {
                LowerTo(candidate);
            }
        }
    }

    void LowerTo(unsigned long candidate) {
        high_ = candidate;
        if (failedCount_ < failed_.size()) {
            failed_[failedCount_++] = candidate;
        }
    }

    /// Where letters change their shapes: looks for a prefix a few clusters beyond the edge that fits although the edge
    /// does not, and moves the edge there.
    bool TryBeyondEdge() {
        if (high_ == text_.length || !HasChangingShapes(text_[high_ - 1])) {
            return false;
        }
        // What a hit leaves to search, at most: candidates or blanks up to the next prefix known not to fit.
        const auto rest = static_cast<unsigned long>(std::bit_width(LeastFailedBeyond(high_) - low_));
        const unsigned long left = MeasurementsLeft();
        const unsigned long most = std::min(kClustersAhead, left - std::min(left, rest));
        unsigned long ahead[kClustersAhead];
        unsigned long count = 0;
        for (unsigned long index = high_; count < most; ++count) {
            index = CandidateFrom(index + 1, text_.length);
            if (index == 0) {
                break;
            }
            ahead[count] = index;
        }
        const unsigned long edge = high_;
        while (count > 0) {
            const unsigned long candidate = ahead[--count];
            if (Fits(candidate)) {
                low_ = candidate;
                high_ = LeastFailedBeyond(candidate);
                return true;
            }
            LowerTo(candidate);
        }
        high_ = edge;
        return false;
    }

    unsigned long LeastFailedBeyond(unsigned long length) const {
        unsigned long least = text_.length;
        for (std::size_t i = 0; i < failedCount_; ++i) {
            if (failed_[i] > length) {
                least = std::min(least, failed_[i]);
            }
        }
        return least;
    }

    /// Between low and high lie blanks, then the units of one cluster but its last: the longest of those prefixes that
    /// fits, or low.
    unsigned long LongestWithinEdge() {
        unsigned long blanksEnd = low_;
        while (blanksEnd + 1 < high_ && IsBlank(text_[blanksEnd])) {
            ++blanksEnd;
        }
        const unsigned long left = MeasurementsLeft();
        const unsigned long length = LongestWithinCluster(blanksEnd);
        return length > blanksEnd ? length : LongestWithinBlanks(blanksEnd, left);
    }

    /// The longest prefix that fits and ends within the cluster from start to high; start when none does.
    unsigned long LongestWithinCluster(unsigned long start) {
        unsigned long end = high_;
        while (end - start > kLongestClusterTriedWhole) {
            const unsigned long middle = start + (end - start) / 2;
            (Fits(middle) ? start : end) = middle;
        }
        do {
            --end;
        } while (end > start && !Fits(end));
        return std::max(end, start);
    }

    /// The longest prefix that fits and ends within the blanks from low to end. They are tried one by one as far as the
    /// measurements go, because a mark without a base may be taller than the blank after it.
    unsigned long LongestWithinBlanks(unsigned long end, unsigned long measurements) {
        unsigned long tooLong = end + 1;
        while (tooLong - low_ > measurements + 1) {
            const unsigned long middle = low_ + (tooLong - low_) / 2;
            (Fits(middle) ? low_ : tooLong) = middle;
            measurements -= std::min(measurements, 1UL);
        }
        do {
            --tooLong;
        } while (tooLong > low_ && !Fits(tooLong));
        return tooLong;
    }

    const Utf16Text &text_;
    PrefixFits fits_;
    unsigned long low_ = 0;
    unsigned long high_;
    unsigned long measurements_ = 1; // of the whole text
    std::array<unsigned long, 32> failed_{};
    std::size_t failedCount_ = 0;
};

} // namespace

TitleFit FitTitle(const Utf16Text &text, PrefixFits fits) {
    if (text.length == 0 || fits(text.length)) {
        return {text.length, false};
    }
    return {std::max(Search(text, fits).Run(), 1UL), true};
}

} // namespace corvel
