// A format is expanded conversion by conversion: the platform never sees more than one conversion, spelt by us, with
// the one argument that it reads. So nothing that stands in the format can make it read anything else.

#include "diagnostics/format.hpp"

#include "diagnostics/conversion.hpp"
#include "objc/guard.hpp"

#include <algorithm>

namespace corvel {
namespace {

using Kind = FormatArgument::Kind;

ns::String NullText() {
    return "(null)"_ns;
}

long long IntegerOf(const FormatArgument *argument) {
    return argument != nullptr && argument->kind() == Kind::kInteger ? argument->integer() : 0;
}

double NumberOf(const FormatArgument *argument) {
    return argument != nullptr && argument->kind() == Kind::kNumber ? argument->number() : 0;
}

const void *AddressOf(const FormatArgument *argument) {
    if (argument == nullptr) {
        return nullptr;
    }
    switch (argument->kind()) {
    case Kind::kObject:
        return argument->object().pointer;
    case Kind::kPointer:
        return argument->pointer();
    case Kind::kText:
        return argument->text();
    default:
        return nullptr;
    }
}

/// What an object says of itself; it may be the host's and raise, or answer anything.
ns::String DescriptionOf(const FormatArgument *argument) {
    ns::Object description;
    if (argument != nullptr && argument->kind() == Kind::kObject) {
        objc::Guard([&] { description = ns::Object{argument->object()}.description(); });
    }
    const bool isText = description.isKindOfClass(objc::ClassOf<ns::String>());
    return isText ? objc::As<ns::String>(description) : NullText();
}

ns::String TextOf(const FormatArgument *argument) {
    ns::String text;
    if (argument != nullptr && argument->kind() == Kind::kText && argument->text() != nullptr) {
        // Bytes that are no UTF-8 give nil on one platform and an exception on another.
        objc::Guard([&] { text = ns::String::stringWithUTF8String(argument->text()); });
    }
    return text ? text : NullText();
}

/// The bits of an integer as its conversion reads them.
objc::ArgumentSlot SlotOf(long long value, ConversionSize size, bool isSigned) {
    switch (size) {
    case ConversionSize::kChar:
        value = isSigned ? static_cast<signed char>(value) : static_cast<unsigned char>(value);
        break;
    case ConversionSize::kShort:
        value = isSigned ? static_cast<short>(value) : static_cast<unsigned short>(value);
        break;
    case ConversionSize::kInt:
        value = isSigned ? static_cast<int>(value) : static_cast<long long>(static_cast<unsigned>(value));
        break;
    case ConversionSize::kLong:
        break;
    }
    return static_cast<objc::ArgumentSlot>(value);
}

/// The spelling of one conversion for the platform.
class Spelling {
  public:
    void Put(char character) {
        characters_[length_++] = character;
    }
    void PutIf(bool wanted, char character) {
        if (wanted) {
            Put(character);
        }
    }
    void PutField(long value) {
        value = std::min(value, kLargestFormatField);
        PutIf(value >= 100, static_cast<char>('0' + (value / 100)));
        PutIf(value >= 10, static_cast<char>('0' + (value / 10 % 10)));
        Put(static_cast<char>('0' + (value % 10)));
    }
    ns::String Text() const {
        return ns::String::stringWithUTF8String(characters_);
    }

  private:
    char characters_[32] = {};
    unsigned long length_ = 0;
};

class Expansion {
  public:
    Expansion(ns::String format, const FormatArgument *arguments, unsigned long count, ns::MutableString result)
        : format_(format), reader_(format), arguments_(arguments), count_(count), result_(result) {}

    void Run() {
        unsigned long copied = 0;
        unsigned long at = reader_.FindPercent(0);
        while (at < reader_.length()) {
            Conversion conversion;
            const unsigned long behind = reader_.Read(at, conversion);
            if (conversion.IsKnown()) {
                CopyLiteral(copied, at);
                Resolve(conversion.width);
                Resolve(conversion.precision);
                Expand(conversion);
                copied = behind;
            }
            at = reader_.FindPercent(behind);
        }
        CopyLiteral(copied, reader_.length());
    }

  private:
    /// The argument at a position, or the next one; null when there is none.
    const FormatArgument *Take(unsigned long position) {
        const unsigned long index = position != 0 ? position - 1 : next_++;
        return index < count_ ? &arguments_[index] : nullptr;
    }

    /// Gives a star its value.
    void Resolve(ConversionField &field) {
        if (field.star) {
            field.value = std::clamp<long long>(IntegerOf(Take(field.position)), INT32_MIN, INT32_MAX);
        }
    }

    void Expand(Conversion &conversion) {
        if (conversion.width.value < 0) { // only a star's value can be negative
            conversion.left = true;
            conversion.width.value = -conversion.width.value;
        }
        if (conversion.kind == u'%') {
            result_.appendString("%"_ns);
            return;
        }
        const FormatArgument *argument = Take(conversion.position);
        switch (conversion.kind) {
        case u'n': // would write through its argument
            return;
        case u'@':
            AppendText(conversion, DescriptionOf(argument));
            return;
        case u's':
            AppendText(conversion, conversion.size == ConversionSize::kLong ? NullText() : TextOf(argument));
            return;
        case u'S': // like %ls: no argument is a pointer to wide characters
            AppendText(conversion, NullText());
            return;
        case u'c':
        case u'C':
            AppendUnit(conversion, IntegerOf(argument));
            return;
        case u'p':
            AppendAddress(conversion, AddressOf(argument));
            return;
        default:
            break;
        }
        if (conversion.IsInteger()) {
            const long long value = IntegerOf(argument);
            AppendNumber(conversion, SlotOf(value, conversion.size, conversion.IsSigned()));
        } else {
            AppendNumber(conversion, __builtin_bit_cast(objc::ArgumentSlot, NumberOf(argument)));
        }
    }

    /// Lets the platform write an integer or a number.
    void AppendNumber(const Conversion &conversion, objc::ArgumentSlot slot) {
        Spelling spelling;
        spelling.Put('%');
        spelling.PutIf(conversion.left, '-');
        spelling.PutIf(conversion.plus, '+');
        spelling.PutIf(conversion.space, ' ');
        spelling.PutIf(conversion.alternate, '#');
        spelling.PutIf(conversion.zero, '0');
        spelling.PutIf(conversion.grouping, '\'');
        if (conversion.width.value > 0) {
            spelling.PutField(conversion.width.value);
        }
        if (conversion.precision.value >= 0) {
            spelling.Put('.');
            spelling.PutField(conversion.precision.value);
        }
        auto kind = static_cast<char>(conversion.kind);
        if (conversion.IsInteger()) {
            spelling.Put('l');
            spelling.Put('l');
            if (kind == 'D' || kind == 'U' || kind == 'O') { // the platform's other names for d, u and o
                kind = static_cast<char>(kind - 'A' + 'a');
            }
        }
        spelling.Put(kind);
        result_.appendString(ns::Formatted(spelling.Text(), &slot));
    }

    void AppendUnit(const Conversion &conversion, long long value) {
        const bool narrow = conversion.kind == u'c' && conversion.size != ConversionSize::kLong;
        const auto unit = static_cast<char16_t>(value & (narrow ? 0xFF : 0xFFFF));
        AppendPadded(conversion, ns::String::stringWithCharacters(&unit, 1));
    }

    void AppendAddress(const Conversion &conversion, const void *address) {
        // The platforms write the null pointer differently, so they are asked for the digits only.
        const auto slot = static_cast<objc::ArgumentSlot>(reinterpret_cast<std::uintptr_t>(address));
        AppendPadded(conversion, ns::Formatted("0x%llx"_ns, &slot));
    }

    /// Appends a text cut to the precision and padded to the width.
    void AppendText(const Conversion &conversion, ns::String text) {
        const long precision = conversion.precision.value;
        if (precision >= 0 && static_cast<unsigned long>(precision) < text.length()) {
            text = text.substringToIndex(static_cast<unsigned long>(precision));
        }
        AppendPadded(conversion, text);
    }

    void AppendPadded(const Conversion &conversion, ns::String text) {
        const auto width = static_cast<unsigned long>(std::min(conversion.width.value, kLargestFormatField));
        const unsigned long length = text.length();
        const unsigned long padding = width > length ? width - length : 0;
        if (!conversion.left) {
            AppendSpaces(padding);
        }
        result_.appendString(text);
        if (conversion.left) {
            AppendSpaces(padding);
        }
    }

    void AppendSpaces(unsigned long count) {
        for (; count > 0; --count) {
            result_.appendString(" "_ns);
        }
    }

    void CopyLiteral(unsigned long begin, unsigned long end) {
        if (begin < end) {
            result_.appendString(format_.substringWithRange({begin, end - begin}));
        }
    }

    ns::String format_;
    ConversionReader reader_;
    const FormatArgument *arguments_;
    unsigned long count_;
    unsigned long next_ = 0;
    ns::MutableString result_;
};

} // namespace

objc::Ref<ns::String> FormatArguments(ns::String format, const FormatArgument *arguments, unsigned long count) {
    const auto result = ns::New<ns::MutableString>();
    // Only descriptions are known to raise, and they are guarded; whatever else a platform may object to must not
    // reach the host, and what was expanded until then stands.
    objc::Guard([&] { Expansion(format, arguments, count, result).Run(); });
    return {result.get()};
}

} // namespace corvel
