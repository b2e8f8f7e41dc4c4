// The string that a configuration travels in.

#include "apple/foundation/data.hpp"
#include "apple/foundation/number.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "apple/uikit/pasteboard.hpp"
#include "runtime_support.hpp"
#include "settings/transfer.hpp"
#include "settings/transfer_text.hpp"
#include "settings/zlib_codec.hpp"
#include "uikit/uikit.hpp"
#include "zlib_failure.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

namespace corvel {
namespace {

class TransferText : public testing::Test {
    test::Pool pool_;
};

std::string Text(ns::String string) {
    return string ? string.UTF8String() : "(none)";
}

ns::String StringOf(const std::string &text) {
    return ns::String::stringWithUTF8String(text.c_str());
}

/// Magic, and base64 of the bytes.
ns::String Wrapped(std::string_view magic, std::span<const unsigned char> bytes) {
    void *copy = std::malloc(bytes.size() + 1);
    std::memcpy(copy, bytes.data(), bytes.size());
    // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): the data frees the copy
    const auto data = objc::Ref<ns::Data>::Adopt(ns::Alloc<ns::Data>().initWithBytesNoCopy(copy, bytes.size()));
    return StringOf(std::string(magic)).stringByAppendingString(data->base64EncodedStringWithOptions(0));
}

std::span<const unsigned char> BytesOf(std::string_view text) {
    return {reinterpret_cast<const unsigned char *>(text.data()), text.size()};
}

ns::String Packed(std::string_view magic, std::string_view json) {
    return Wrapped(magic, Deflate(BytesOf(json)).value());
}

ns::Dictionary Sample() {
    return ns::Dictionary::dictionaryWithObject(u"弹幕😀\n/"_ns, "Corvel.slots.0"_ns);
}

bool IsSample(ns::Dictionary found) {
    return found.isEqual(ns::Object(Sample()));
}

TEST_F(TransferText, ComesBackFromBothMagics) {
    const objc::Ref<ns::String> text = EncodeConfiguration(Sample());
    ASSERT_TRUE(text->hasPrefix("DM1:"_ns));
    EXPECT_TRUE(IsSample(DecodeConfiguration(text)));
    EXPECT_TRUE(IsSample(DecodeConfiguration("CV1:"_ns.stringByAppendingString(text->substringFromIndex(4)))));
}

TEST_F(TransferText, TakesBareJsonWithBlanksAround) {
    EXPECT_TRUE(IsSample(DecodeConfiguration(u" \n{ \"Corvel.slots.0\" : \"弹幕😀\\n\\/\" }\t"_ns)));
}

TEST_F(TransferText, FallsBackToBareJsonWhenCompressionFails) {
    for (const test::ZlibFailure failure : {test::ZlibFailure{.deflateInit = true}, {.deflate = true}}) {
        const test::FailingZlib failing(failure);
        const objc::Ref<ns::String> text = EncodeConfiguration(Sample());
        EXPECT_EQ(Text(text), R"({"Corvel.slots.0":"弹幕😀\n\/"})");
        EXPECT_TRUE(IsSample(DecodeConfiguration(text)));
    }
}

TEST_F(TransferText, ReachesThePasteboardWhenCompressionFails) {
    if (objc_getClass("UIView") == nullptr) {
        sim::RegisterUIKit();
    }
    const auto store = ns::UserDefaults::standardUserDefaults();
    for (const test::ZlibFailure failure : {test::ZlibFailure{.deflateInit = true}, {.deflate = true}}) {
        store.setObject(u"弹幕😀\n/"_ns, "Corvel.slots.0"_ns);
        ui::Pasteboard::generalPasteboard().setString("copied"_ns);
        const test::FailingZlib failing(failure);
        HandleExport(nullptr, nullptr);
        const ns::String copied = ui::Pasteboard::generalPasteboard().string();
        EXPECT_TRUE(copied.hasPrefix("{"_ns)) << Text(copied);
        EXPECT_TRUE(
            DecodeConfiguration(copied)->objectForKey("Corvel.slots.0"_ns).isEqual(ns::Object(u"弹幕😀\n/"_ns)));
        store.removeObjectForKey("Corvel.slots.0"_ns);
    }
}

TEST_F(TransferText, HasNoFormForWhatJsonCannotSay) {
    const auto data = ns::New<ns::Data>();
    EXPECT_FALSE(EncodeConfiguration(ns::Dictionary::dictionaryWithObject(data.get(), "Corvel.slots.0"_ns)));
}

TEST_F(TransferText, RefusesEverythingElse) {
    const std::string good = Text(EncodeConfiguration(Sample()));
    const std::string body = good.substr(4);
    const std::string bad[] = {" ", "DM1", "DM1:", "CV1:", "DM2:" + body, "dm1:" + body, body, " " + good,
                               // Base64.
                               "DM1: " + body, good + " ", good + "\n", good.substr(0, 20) + "\n" + good.substr(20),
                               good + "=", good + "A", "DM1:" + body.substr(1), "DM1:-_-_", "DM1:====", "DM1:弹幕",
                               // JSON.
                               "1", "\"text\"", "null", "true", "[]", "[{}]", "{", "{\"a\":}", "{} {}",
                               std::string(200000, '['), std::string(200000, '{'),
                               "{\"a\":" + std::string(600, '[') + std::string(600, ']') + "}"};
    for (const std::string &text : bad) {
        EXPECT_FALSE(DecodeConfiguration(StringOf(text))) << text.substr(0, 80);
    }
}

TEST_F(TransferText, RefusesPackedTextsThatAreNoObject) {
    EXPECT_TRUE(DecodeConfiguration(Packed("DM1:", "{}")));
    for (const char *json : {"[]", "1", "null", "\"a\"", "{", "{\"a\":\"\xFF\"}", "\xFF\xFE"}) {
        EXPECT_FALSE(DecodeConfiguration(Packed("DM1:", json))) << json;
    }
    EXPECT_FALSE(DecodeConfiguration(Wrapped("DM1:", BytesOf("{}")))); // not compressed
}

TEST_F(TransferText, RefusesALoneSurrogate) {
    const char16_t units[] = u"{\"Corvel.slots.0\":\"\xD83D\"}";
    EXPECT_FALSE(DecodeConfiguration(ns::String::stringWithCharacters(units, std::size(units) - 1)));
}

TEST_F(TransferText, LetsTheLastOfTwoEqualKeysCount) {
    const objc::Ref<ns::Dictionary> found = DecodeConfiguration(R"({"k":1,"k":2})"_ns);
    EXPECT_EQ(objc::As<ns::Number>(found->objectForKey("k"_ns)).intValue(), 2);
}

} // namespace
} // namespace corvel
