// Base64 as the phone decodes it: whole groups, padding at the end only.

#include "apple/foundation/data.hpp"

#include <gtest/gtest.h>

#include <string>

namespace corvel {
namespace {

std::string Decoded(const std::string &text) {
    const auto data = objc::Ref<ns::Data>::Adopt(
        ns::Alloc<ns::Data>().initWithBase64EncodedString(ns::String::stringWithUTF8String(text.c_str()), 0));
    return data ? std::string(static_cast<const char *>(data->bytes()), data->length()) : "(nil)";
}

TEST(Base64, DecodesWholeGroups) {
    EXPECT_EQ(Decoded(""), "");
    EXPECT_EQ(Decoded("QUJD"), "ABC");
    EXPECT_EQ(Decoded("QUI="), "AB");
    EXPECT_EQ(Decoded("QQ=="), "A");
    EXPECT_EQ(Decoded("QR=="), "A") << "bits behind the last byte do not count";
    EXPECT_EQ(Decoded("+/+/"), "\xFB\xFF\xBF");
}

TEST(Base64, RefusesEverythingElse) {
    for (const char *text :
         {"A",    "QQ",   "QUI",  "QQ=",      "QUJDQ", "QUJDQQ", "QUJD=",  "=",      "====",      "Q===", "=QQQ",
          "Q=Q=", "QQ=Q", "-_-_", "QQ==QQ==", "QUJé",  "Q JD",   "QU\nJD", "QUJD\n", "QUJD QUJD", " ",    "弹幕弹幕"}) {
        EXPECT_EQ(Decoded(text), "(nil)") << text;
    }
}

} // namespace
} // namespace corvel
