#include "runtime/json_reader.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/number.hpp"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

namespace sim::json {
namespace {

constexpr int kMostLevels = 512;

struct MutableArray : ns::Array {
    using Array::Array;
    static constexpr const char *kClassName = "NSMutableArray";
};

struct MutableDictionary : ns::Dictionary {
    using Dictionary::Dictionary;
    static constexpr const char *kClassName = "NSMutableDictionary";
};

using Value = objc::Ref<ns::Object>;

/// A recursive-descent reader; an empty value says that error_ tells why.
class Reader {
  public:
    Reader(std::u16string text, bool mutableContainers)
        : text_(std::move(text)), mutableContainers_(mutableContainers) {}

    ReadResult Whole() {
        SkipSpace();
        Value value = AnyValue();
        if (value) {
            SkipSpace();
            if (at_ != text_.size()) {
                value = Fail("Garbage at end");
            }
        }
        return {value, error_};
    }

  private:
    char16_t Peek() const {
        return at_ < text_.size() ? text_[at_] : u'\0';
    }

    bool Take(char16_t unit) {
        if (at_ < text_.size() && text_[at_] == unit) {
            ++at_;
            return true;
        }
        return false;
    }

    bool TakeWord(std::u16string_view word) {
        if (text_.compare(at_, word.size(), word) == 0) {
            at_ += word.size();
            return true;
        }
        return false;
    }

    void SkipSpace() {
        while (at_ < text_.size() && std::u16string_view(u" \t\r\n").find(text_[at_]) != std::u16string_view::npos) {
            ++at_;
        }
    }

    Value Fail(const char *what) {
        error_ = std::string(what) + " around character " + std::to_string(at_) + ".";
        return {};
    }

    Value AnyValue() {
        switch (Peek()) {
        case u'{':
            return Nested(&Reader::Dictionary);
        case u'[':
            return Nested(&Reader::Array);
        case u'"': {
            const auto text = Text();
            return text ? String(*text) : Value{};
        }
        case u't':
            return TakeWord(u"true") ? Value(ns::Number::numberWithBool(true)) : Fail("Invalid value");
        case u'f':
            return TakeWord(u"false") ? Value(ns::Number::numberWithBool(false)) : Fail("Invalid value");
        case u'n':
            return TakeWord(u"null") ? Value(objc::SendClass<ns::Null, "null", ns::Object>()) : Fail("Invalid value");
        default:
            return Number();
        }
    }

    Value Nested(Value (Reader::*container)()) {
        if (++level_ > kMostLevels) {
            return Fail("Too many nested arrays or dictionaries");
        }
        ++at_;
        Value value = (this->*container)();
        --level_;
        return value;
    }

    Value Finished(ns::Object container) const {
        return mutableContainers_ ? Value(container) : Value::Adopt(objc::Send<"copy", ns::Object>(container));
    }

    Value Dictionary() {
        const auto dictionary = ns::New<MutableDictionary>();
        SkipSpace();
        if (Take(u'}')) {
            return Finished(dictionary.get());
        }
        do {
            SkipSpace();
            if (Peek() != u'"') {
                return Fail("No string key for value in object");
            }
            const auto key = Text();
            if (!key) {
                return {};
            }
            SkipSpace();
            if (!Take(u':')) {
                return Fail("No value for key in object");
            }
            SkipSpace();
            const Value value = AnyValue();
            if (!value) {
                return {};
            }
            objc::Send<"setObject:forKey:", void>(dictionary.get(), value.get(), String(*key).get());
            SkipSpace();
        } while (Take(u','));
        return Take(u'}') ? Finished(dictionary.get()) : Fail("Badly formed object");
    }

    Value Array() {
        const auto array = ns::New<MutableArray>();
        SkipSpace();
        if (Take(u']')) {
            return Finished(array.get());
        }
        do {
            SkipSpace();
            const Value value = AnyValue();
            if (!value) {
                return {};
            }
            objc::Send<"addObject:", void>(array.get(), value.get());
            SkipSpace();
        } while (Take(u','));
        return Take(u']') ? Finished(array.get()) : Fail("Badly formed array");
    }

    static Value String(const std::u16string &units) {
        return {ns::String::stringWithCharacters(units.data(), units.size())};
    }

    /// The units of a quoted string; empty after a failure.
    std::optional<std::u16string> Text() {
        std::u16string units;
        ++at_;
        while (at_ < text_.size()) {
            const char16_t unit = text_[at_];
            if (unit == u'"') {
                ++at_;
                return units;
            }
            if (unit < 0x20) {
                Fail("Unescaped control character");
                return {};
            }
            ++at_;
            if (unit != u'\\') {
                units.push_back(unit);
            } else if (!Escape(units)) {
                return {};
            }
        }
        Fail("Unterminated string");
        return {};
    }

    bool Escape(std::u16string &units) {
        constexpr std::u16string_view kLetters = u"\"\\/bfnrt";
        constexpr std::u16string_view kMeanings = u"\"\\/\b\f\n\r\t";
        const char16_t letter = Peek();
        if (letter == u'u') {
            ++at_;
            return HexEscape(units);
        }
        const std::size_t index = letter != 0 ? kLetters.find(letter) : std::u16string_view::npos;
        if (index == std::u16string_view::npos) {
            Fail("Invalid escape sequence");
            return false;
        }
        ++at_;
        units.push_back(kMeanings[index]);
        return true;
    }

    /// The escape of one character: one unit, or a surrogate pair written as two escapes.
    bool HexEscape(std::u16string &units) {
        const auto first = HexDigits();
        if (!first) {
            return false;
        }
        units.push_back(*first);
        if (*first < 0xD800 || *first > 0xDFFF) {
            return true;
        }
        if (*first <= 0xDBFF && TakeWord(u"\\u")) {
            const auto second = HexDigits();
            if (second && *second >= 0xDC00 && *second <= 0xDFFF) {
                units.push_back(*second);
                return true;
            }
        }
        Fail("Unpaired surrogate in escape sequence");
        return false;
    }

    std::optional<char16_t> HexDigits() {
        unsigned value = 0;
        for (int i = 0; i < 4; ++i) {
            const char16_t digit = Peek();
            const std::size_t index = std::u16string_view(u"0123456789abcdef").find(digit | 0x20);
            if (digit < u'0' || index == std::u16string_view::npos) {
                Fail("Invalid hex digit in unicode escape sequence");
                return {};
            }
            ++at_;
            value = value * 16 + static_cast<unsigned>(index);
        }
        return static_cast<char16_t>(value);
    }

    /// Copies a run of digits; false when there is none.
    bool Digits(std::string &number) {
        const std::size_t start = at_;
        while (Peek() >= u'0' && Peek() <= u'9') {
            number.push_back(static_cast<char>(text_[at_++]));
        }
        return at_ != start;
    }

    Value Number() {
        std::string number;
        if (Take(u'-')) {
            number.push_back('-');
        }
        const bool leadingZero = Peek() == u'0';
        const std::size_t start = at_;
        if (!Digits(number)) {
            return Fail("Invalid value");
        }
        if (leadingZero && at_ - start > 1) {
            return Fail("Number with leading zero");
        }
        bool integral = true;
        if (Take(u'.')) {
            integral = false;
            number.push_back('.');
            if (!Digits(number)) {
                return Fail("Number with decimal point but no additional digits");
            }
        }
        if (Take(u'e') || Take(u'E')) {
            integral = false;
            number.push_back('e');
            if (Peek() == u'-' || Peek() == u'+') {
                number.push_back(static_cast<char>(text_[at_++]));
            }
            if (!Digits(number)) {
                return Fail("Number with an exponent but no additional digits");
            }
        }
        if (integral) {
            errno = 0;
            const long long value = std::strtoll(number.c_str(), nullptr, 10);
            if (errno == 0) {
                return {objc::SendClass<ns::Number, "numberWithLongLong:", ns::Number>(value)};
            }
        }
        const double value = std::strtod(number.c_str(), nullptr);
        return std::isfinite(value) ? Value(objc::SendClass<ns::Number, "numberWithDouble:", ns::Number>(value))
                                    : Fail("Number wound up as NaN");
    }

    std::u16string text_;
    bool mutableContainers_;
    std::size_t at_ = 0;
    int level_ = 0;
    std::string error_;
};

} // namespace

ReadResult Read(ns::String text, bool mutableContainers) {
    std::u16string units(text.length(), u'\0');
    text.getCharacters(units.data(), {0, units.size()});
    return Reader(std::move(units), mutableContainers).Whole();
}

} // namespace sim::json
