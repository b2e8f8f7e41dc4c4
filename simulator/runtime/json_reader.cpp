#include "runtime/json_reader.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/number.hpp"

#include <nlohmann/json.hpp>

#include <limits>
#include <vector>

namespace sim::json {
namespace {

constexpr std::size_t kMostLevels = 512;

ns::String StringOf(const std::string &text) {
    // Foundation drops byte-order marks that a text begins with; behind another character they stay.
    const std::string guarded = '"' + text;
    const auto string = objc::Ref<ns::String>::Adopt(objc::Send<"initWithBytes:length:encoding:", ns::String>(
        ns::Alloc<ns::String>(), static_cast<const void *>(guarded.data()), guarded.size(), NSUTF8StringEncoding));
    return string->substringFromIndex(1);
}

/// Makes objects of what the parser meets. Each answer says whether to go on. The parser's own values are not used:
/// they have no limit of levels, and would be a second copy of a hostile text.
class Builder {
  public:
    explicit Builder(bool mutableContainers) : mutableContainers_(mutableContainers) {}

    ReadResult Finish() {
        return std::move(result_);
    }

    bool null() {
        return Add(ns::Null::null());
    }
    bool boolean(bool value) {
        return Add(ns::Number::numberWithBool(value));
    }
    bool number_integer(std::int64_t value) {
        return Add(ns::Number::numberWithLongLong(value));
    }
    bool number_unsigned(std::uint64_t value) {
        return value <= std::numeric_limits<std::int64_t>::max() ? number_integer(static_cast<std::int64_t>(value))
                                                                 : number_float(static_cast<double>(value), {});
    }
    bool number_float(double value, const std::string &) {
        return Add(ns::Number::numberWithDouble(value));
    }
    bool string(const std::string &text) {
        return Add(StringOf(text));
    }
    static bool binary(const std::vector<std::uint8_t> &) {
        return false; // text has none
    }
    bool start_object(std::size_t) {
        return Open(ns::New<ns::MutableDictionary>().get());
    }
    bool key(const std::string &text) {
        levels_.back().key = StringOf(text);
        return true;
    }
    bool end_object() {
        return Close();
    }
    bool start_array(std::size_t) {
        return Open(ns::New<ns::MutableArray>().get());
    }
    bool end_array() {
        return Close();
    }
    bool parse_error(std::size_t position, const std::string &, const std::exception &) {
        // The parser's own words quote the text, whose bytes may be no characters.
        return Fail("Invalid JSON around byte " + std::to_string(position) + ".");
    }

  private:
    /// A container that is being read.
    struct Level {
        objc::Ref<ns::Object> container;
        objc::Ref<ns::String> key; // of a dictionary's next value; empty in an array
    };

    bool Fail(std::string why) {
        result_ = {nullptr, std::move(why)};
        return false;
    }

    bool Open(ns::Object container) {
        levels_.push_back({container, nullptr});
        return levels_.size() <= kMostLevels || Fail("Too many nested arrays or dictionaries.");
    }

    bool Close() {
        const objc::Ref<ns::Object> container = std::move(levels_.back().container);
        levels_.pop_back();
        return Add(mutableContainers_ ? container
                                      : objc::Ref<ns::Object>::Adopt(objc::Send<"copy", ns::Object>(container.get())));
    }

    bool Add(ns::Object value) {
        if (levels_.empty()) {
            result_.object = value;
        } else if (const Level &level = levels_.back(); level.key) {
            objc::As<ns::MutableDictionary>(level.container).setObject(value, level.key.get());
        } else {
            objc::As<ns::MutableArray>(level.container).addObject(value);
        }
        return true;
    }

    bool mutableContainers_;
    std::vector<Level> levels_;
    ReadResult result_;
};

} // namespace

ReadResult Read(std::string_view text, bool mutableContainers) {
    // The parser takes a zero for the end of the text and would not see what stands behind it.
    if (text.find('\0') != std::string_view::npos) {
        return {nullptr, "Zero byte in the text."};
    }
    Builder builder(mutableContainers);
    nlohmann::json::sax_parse(text, &builder);
    return builder.Finish();
}

} // namespace sim::json
