#include "runtime/json_writer.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/number.hpp"
#include "apple/foundation/string.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

namespace sim::json {
namespace {

/// Foundation's class of booleans, whose objCType is that of a char.
struct BoolNumber : ns::Number {
    using Number::Number;
    static constexpr const char *kClassName = "NSBoolNumber";
};

template <objc::Handle T> bool Is(ns::Object object) {
    return object.isKindOfClass(objc::ClassOf<T>());
}

class Writer {
  public:
    explicit Writer(unsigned long options) : options_(options) {}

    WriteResult Finish(ns::Object object) {
        Any(object, 0);
        return std::move(result_);
    }

  private:
    bool Has(unsigned long option) const {
        return (options_ & option) != 0;
    }

    void Put(std::string_view text) {
        result_.text += text;
    }

    void Break(int level) {
        if (Has(kPrettyPrinted)) {
            result_.text += '\n';
            result_.text.append(2 * static_cast<std::size_t>(level), ' ');
        }
    }

    void Any(ns::Object object, int level) {
        if (Is<ns::String>(object)) {
            Text(objc::As<ns::String>(object));
        } else if (Is<ns::Number>(object)) {
            Number(objc::As<ns::Number>(object));
        } else if (Is<ns::Null>(object)) {
            Put("null");
        } else if (Is<ns::Array>(object)) {
            Array(objc::As<ns::Array>(object), level);
        } else if (Is<ns::Dictionary>(object)) {
            Dictionary(objc::As<ns::Dictionary>(object), level);
        } else {
            result_.invalid = std::string("Invalid type in JSON write (") +
                              class_getName(objc::object_getClass(object.pointer)) + ")";
        }
    }

    void Array(ns::Array array, int level) {
        Put("[");
        const unsigned long count = array.count();
        for (unsigned long i = 0; i < count; ++i) {
            Put(i == 0 ? "" : ",");
            Break(level + 1);
            Any(array.objectAtIndex(i), level + 1);
        }
        if (count != 0) {
            Break(level);
        }
        Put("]");
    }

    void Dictionary(ns::Dictionary dictionary, int level) {
        const ns::Array keys = dictionary.allKeys();
        std::vector<ns::String> names;
        for (unsigned long i = 0; i < keys.count(); ++i) {
            if (!Is<ns::String>(keys.objectAtIndex(i))) {
                result_.invalid = "Invalid (non-string) key in JSON dictionary";
                return;
            }
            names.push_back(objc::As<ns::String>(keys.objectAtIndex(i)));
        }
        if (Has(kSortedKeys)) {
            std::ranges::sort(
                names, [](ns::String left, ns::String right) { return objc::Send<"compare:", long>(left, right) < 0; });
        }
        Put("{");
        for (std::size_t i = 0; i < names.size(); ++i) {
            Put(i == 0 ? "" : ",");
            Break(level + 1);
            Text(names[i]);
            Put(Has(kPrettyPrinted) ? " : " : ":");
            Any(dictionary.objectForKey(names[i]), level + 1);
        }
        if (!names.empty()) {
            Break(level);
        }
        Put("}");
    }

    void Text(ns::String string) {
        Put("\"");
        std::u16string units(string.length(), u'\0');
        string.getCharacters(units.data(), {0, units.size()});
        for (std::size_t i = 0; i < units.size(); ++i) {
            char32_t character = units[i];
            if (character >= 0xD800 && character <= 0xDFFF) {
                const bool paired =
                    character <= 0xDBFF && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] <= 0xDFFF;
                if (!paired) {
                    result_.unconvertible = true;
                    return;
                }
                character = 0x10000 + ((character - 0xD800) << 10) + (units[i + 1] - 0xDC00u);
                ++i;
            }
            Character(character);
        }
        Put("\"");
    }

    void Character(char32_t character) {
        constexpr std::string_view kEscaped = "\"\\\b\f\n\r\t";
        constexpr std::string_view kLetters = "\"\\bfnrt";
        if (character == '/') {
            Put(Has(kWithoutEscapingSlashes) ? "/" : "\\/");
        } else if (const std::size_t index =
                       character < 0x80 ? kEscaped.find(static_cast<char>(character)) : std::string_view::npos;
                   index != std::string_view::npos) {
            result_.text += '\\';
            result_.text += kLetters[index];
        } else if (character < 0x20) {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(character));
            Put(escape.data());
        } else {
            Utf8(character);
        }
    }

    void Utf8(char32_t character) {
        const auto put = [&](char32_t byte) { result_.text += static_cast<char>(byte); };
        if (character < 0x80) {
            put(character);
        } else if (character < 0x800) {
            put(0xC0 | character >> 6);
            put(0x80 | (character & 0x3F));
        } else if (character < 0x10000) {
            put(0xE0 | character >> 12);
            put(0x80 | (character >> 6 & 0x3F));
            put(0x80 | (character & 0x3F));
        } else {
            put(0xF0 | character >> 18);
            put(0x80 | (character >> 12 & 0x3F));
            put(0x80 | (character >> 6 & 0x3F));
            put(0x80 | (character & 0x3F));
        }
    }

    void Number(ns::Number number) {
        if (Is<BoolNumber>(number)) {
            Put(number.intValue() != 0 ? "true" : "false");
            return;
        }
        const char type = *objc::Send<"objCType", const char *>(number);
        if (type == 'f' || type == 'd') {
            const double value = objc::Send<"doubleValue", double>(number);
            if (!std::isfinite(value)) {
                result_.invalid = "Invalid number value (NaN or infinite) in JSON write";
                return;
            }
            std::array<char, 32> digits{};
            std::snprintf(digits.data(), digits.size(), "%.17g", value);
            Put(digits.data());
            return;
        }
        Put(objc::Send<"stringValue", ns::String>(number).UTF8String());
    }

    unsigned long options_;
    WriteResult result_;
};

} // namespace

WriteResult Write(ns::Object object, unsigned long options) {
    return Writer(options).Finish(object);
}

} // namespace sim::json
