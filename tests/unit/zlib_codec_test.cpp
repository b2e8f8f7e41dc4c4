// Compression of configuration texts.

#include "settings/zlib_codec.hpp"
#include "zlib_failure.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes BytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

/// Random bytes; few distinct ones compress, all 256 do not.
Bytes Noise(std::size_t length, unsigned distinct) {
    std::mt19937 random(static_cast<unsigned>(length));
    Bytes bytes(length);
    std::ranges::generate(bytes, [&] { return static_cast<unsigned char>(random() % distinct); });
    return bytes;
}

/// Zeros after some noise, which keeps the packed form so long that its text is made in few steps.
Bytes ZerosAfter(std::size_t noise, std::size_t length) {
    Bytes text = Noise(noise, 256);
    text.resize(length);
    return text;
}

Bytes Copy(const std::optional<ByteBuffer> &buffer) {
    const std::span<const unsigned char> bytes = buffer.value();
    return {bytes.begin(), bytes.end()};
}

Bytes Packed(const Bytes &text) {
    const auto packed = Deflate(text);
    EXPECT_TRUE(packed.has_value());
    return packed ? Copy(packed) : Bytes{};
}

void ExpectRoundTrip(const Bytes &text) {
    const auto back = Inflate(Packed(text));
    ASSERT_TRUE(back.has_value()) << text.size();
    EXPECT_TRUE(Copy(back) == text) << text.size();
}

TEST(ZlibCodec, BringsTextsBack) {
    ExpectRoundTrip(BytesOf("{}"));
    ExpectRoundTrip(BytesOf(R"({"Corvel.slots.0":"弹幕 😀\n"})"));
    // Around the sizes at which the output buffers are made and grown.
    for (const std::size_t length : {1, 127, 128, 129, 255, 256, 257, 1000, 4096, 100000, 300007}) {
        ExpectRoundTrip(Noise(length, 256));
        ExpectRoundTrip(Noise(length, 3));
        ExpectRoundTrip(Bytes(length, 'a'));
    }
}

TEST(ZlibCodec, WritesTheZlibFormatAtTheBestLevel) {
    const Bytes packed = Packed(BytesOf("{\"a\":1}"));
    ASSERT_GE(packed.size(), 2U);
    EXPECT_EQ(packed[0], 0x78);
    EXPECT_EQ(packed[1], 0xDA);
}

TEST(ZlibCodec, ReadsAnEmptyText) {
    const Bytes packed{0x78, 0x9C, 0x03, 0x00, 0x00, 0x00, 0x00, 0x01};
    const auto text = Inflate(packed);
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(text.value().size(), 0U);
}

TEST(ZlibCodec, RefusesEveryTruncation) {
    const Bytes packed = Packed(Noise(2000, 7));
    for (std::size_t length = 0; length < packed.size(); ++length) {
        EXPECT_FALSE(Inflate(Bytes(packed.begin(), packed.begin() + static_cast<long>(length)))) << length;
    }
}

TEST(ZlibCodec, RefusesAWrongChecksum) {
    Bytes packed = Packed(BytesOf("{\"Corvel.config.fontSize\":14}"));
    packed.back() ^= 1;
    EXPECT_FALSE(Inflate(packed));
}

TEST(ZlibCodec, RefusesNoise) {
    for (std::size_t length = 1; length < 2000; length += 37) {
        EXPECT_FALSE(Inflate(Noise(length, 256))) << length;
    }
}

TEST(ZlibCodec, IgnoresWhatFollowsTheStream) {
    const Bytes text = BytesOf(R"({"Corvel.slots.0":"a"})");
    Bytes packed = Packed(text);
    const Bytes tail = Noise(1000, 256);
    packed.insert(packed.end(), tail.begin(), tail.end());
    const auto back = Inflate(packed);
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(Copy(back), text);
}

TEST(ZlibCodec, KeepsTheBoundToTheByte) {
    constexpr std::size_t kNoise = kLargestText / 16;
    const auto within = Inflate(Packed(ZerosAfter(kNoise, kLargestText)));
    ASSERT_TRUE(within.has_value());
    EXPECT_EQ(within.value().size(), kLargestText);
    EXPECT_FALSE(Inflate(Packed(ZerosAfter(kNoise, kLargestText + 1))));
}

TEST(ZlibCodec, RefusesABombWithoutFillingMemory) {
    const Bytes bomb = Packed(ZerosAfter(std::size_t{1} << 19, 2 * kLargestText));
    ASSERT_LT(bomb.size(), 1U << 20);
    test::TakeLargestRoom();
    EXPECT_FALSE(Inflate(bomb));
    EXPECT_EQ(test::TakeLargestRoom(), kLargestText + 1);
}

TEST(ZlibCodec, BoundsTheRoomForALongStreamToo) {
    // Three times this stream's length would be beyond the bound at once.
    test::TakeLargestRoom();
    EXPECT_TRUE(Inflate(Packed(Noise(kLargestText / 3 + 1, 256))));
    EXPECT_EQ(test::TakeLargestRoom(), kLargestText + 1);
}

TEST(ZlibCodec, GivesNothingWhenZlibFails) {
    const Bytes text = BytesOf("{}");
    const Bytes packed = Packed(text);
    {
        const test::FailingZlib failing({.deflateInit = true});
        EXPECT_FALSE(Deflate(text));
    }
    {
        const test::FailingZlib failing({.deflate = true});
        EXPECT_FALSE(Deflate(text));
    }
    {
        const test::FailingZlib failing({.inflateInit = true});
        EXPECT_FALSE(Inflate(packed));
    }
    EXPECT_TRUE(Inflate(packed));
}

} // namespace
} // namespace corvel
