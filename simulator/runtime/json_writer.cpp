#include "runtime/json_writer.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/number.hpp"

#include <nlohmann/json.hpp>

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

/// Only strings are the library's to write: it would sort keys, print 1.0 for a double that the phone writes as 1, and
/// set a pretty-printed colon in another way.
class Writer {
  public:
    explicit Writer(NSJSONWritingOptions options) : options_(options) {}

    WriteResult Finish(ns::Object object) {
        Any(object, 0);
        return std::move(result_);
    }

  private:
    bool Has(NSJSONWritingOptions option) const {
        return (options_ & option) != 0;
    }

    void Put(std::string_view text) {
        result_.text += text;
    }

    void Any(ns::Object object, int level) {
        if (object.Is<ns::String>()) {
            Text(objc::As<ns::String>(object));
        } else if (object.Is<BoolNumber>()) {
            Put(objc::As<ns::Number>(object).intValue() != 0 ? "true" : "false");
        } else if (object.Is<ns::Number>()) {
            Number(objc::As<ns::Number>(object));
        } else if (object.Is<ns::Null>()) {
            Put("null");
        } else if (object.Is<ns::Array>()) {
            const ns::ArrayOf<ns::Object> elements = objc::As<ns::Array>(object);
            Container("[", elements, "]", level, [&](ns::Object element) { Any(element, level + 1); });
        } else if (object.Is<ns::Dictionary>()) {
            Dictionary(objc::As<ns::Dictionary>(object), level);
        } else {
            result_.invalid = std::string("Invalid type in JSON write (") +
                              class_getName(objc::object_getClass(object.pointer)) + ")";
        }
    }

    /// Puts a bracket, each element by the function, with commas between them, and the other bracket.
    template <class Range, class PutElement>
    void Container(std::string_view open, const Range &elements, std::string_view close, int level, PutElement put) {
        const auto breakLine = [this](int indent) {
            if (Has(NSJSONWritingPrettyPrinted)) {
                result_.text += '\n' + std::string(2 * static_cast<std::size_t>(indent), ' ');
            }
        };
        Put(open);
        bool empty = true;
        for (const auto element : elements) {
            Put(empty ? "" : ",");
            empty = false;
            breakLine(level + 1);
            put(element);
        }
        if (!empty) {
            breakLine(level);
        }
        Put(close);
    }

    void Dictionary(ns::Dictionary dictionary, int level) {
        std::vector<ns::String> keys;
        for (const ns::Object key : dictionary.allKeys()) {
            if (!key.Is<ns::String>()) {
                result_.invalid = "Invalid (non-string) key in JSON dictionary";
                return;
            }
            keys.push_back(objc::As<ns::String>(key));
        }
        if (Has(NSJSONWritingSortedKeys)) {
            std::ranges::sort(
                keys, [](ns::String left, ns::String right) { return objc::Send<"compare:", long>(left, right) < 0; });
        }
        Container("{", keys, "}", level, [&](ns::String key) {
            Text(key);
            Put(Has(NSJSONWritingPrettyPrinted) ? " : " : ":");
            Any(dictionary.objectForKey(key), level + 1);
        });
    }

    void Text(ns::String string) {
        const ns::Data utf8 = string.dataUsingEncoding(NSUTF8StringEncoding);
        if (!utf8) {
            result_.unconvertible = true;
            return;
        }
        const nlohmann::json text = std::string(static_cast<const char *>(utf8.bytes()), utf8.length());
        for (const char byte : text.dump()) {
            // The library leaves slashes alone, the phone escapes them as well.
            Put(byte == '/' && !Has(NSJSONWritingWithoutEscapingSlashes) ? "\\/" : std::string_view(&byte, 1));
        }
    }

    void Number(ns::Number number) {
        const char type = *number.objCType();
        if (type != 'f' && type != 'd') {
            Put(number.stringValue().UTF8String());
            return;
        }
        const double value = number.doubleValue();
        if (!std::isfinite(value)) {
            result_.invalid = "Invalid number value (NaN or infinite) in JSON write";
            return;
        }
        std::array<char, 32> digits{};
        std::snprintf(digits.data(), digits.size(), "%.17g", value);
        Put(digits.data());
    }

    NSJSONWritingOptions options_;
    WriteResult result_;
};

} // namespace

WriteResult Write(ns::Object object, NSJSONWritingOptions options) {
    return Writer(options).Finish(object);
}

} // namespace sim::json
