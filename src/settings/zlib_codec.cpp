#include "settings/zlib_codec.hpp"

#include "settings/zlib_interface.hpp"

#include <algorithm>
#include <limits>

namespace corvel {
namespace {

constexpr int kBestCompression = 9;
constexpr int kStreamSize = sizeof(zlib::Stream);

/// zlib counts the bytes of a window in 32 bits.
bool FitsWindow(std::size_t length) {
    return length <= std::numeric_limits<unsigned>::max();
}

/// How a stream's output buffer grows, in bytes.
struct Growth {
    std::size_t first;
    std::size_t step;
    std::size_t most;
};

/// Runs step(stream) into a growing buffer until it says something else than kOk. Nothing unless that is the end of the
/// stream; nothing either when the buffer is full at its largest.
template <class Step> std::optional<ByteBuffer> Collect(zlib::Stream &stream, const Growth &growth, const Step &step) {
    ByteBuffer output;
    if (!output.Resize(std::min(growth.first, growth.most))) {
        return {};
    }
    std::size_t produced = 0;
    int result = zlib::kOk;
    while (result == zlib::kOk) {
        if (produced == output.size()) {
            if (produced == growth.most || !output.Resize(std::min(produced + growth.step, growth.most))) {
                return {};
            }
        }
        const std::size_t room = output.size() - produced;
        stream.nextOut = output.data() + produced;
        stream.availableOut = static_cast<unsigned>(room);
        result = step(stream);
        produced += room - stream.availableOut;
    }
    if (result != zlib::kStreamEnd) {
        return {};
    }
    output.Cut(produced);
    return output;
}

zlib::Stream StreamOf(std::span<const unsigned char> input) {
    zlib::Stream stream{};
    stream.nextIn = input.data();
    stream.availableIn = static_cast<unsigned>(input.size());
    return stream;
}

} // namespace

std::optional<ByteBuffer> Deflate(std::span<const unsigned char> text) {
    zlib::Stream stream = StreamOf(text);
    if (!FitsWindow(text.size()) || deflateInit_(&stream, kBestCompression, zlib::kVersion, kStreamSize) != zlib::kOk) {
        return {};
    }
    const Growth growth{.first = std::max<std::size_t>(text.size() / 2, 128),
                        .step = std::max<std::size_t>(text.size() / 4, 64) + 64,
                        .most = std::numeric_limits<unsigned>::max()};
    auto packed = Collect(stream, growth, [](zlib::Stream &at) { return deflate(&at, zlib::kFinish); });
    deflateEnd(&stream);
    return packed;
}

std::optional<ByteBuffer> Inflate(std::span<const unsigned char> packed) {
    zlib::Stream stream = StreamOf(packed);
    if (!FitsWindow(packed.size()) || inflateInit_(&stream, zlib::kVersion, kStreamSize) != zlib::kOk) {
        return {};
    }
    // One byte beyond the bound, so that a text which just keeps it still finds room for its end.
    const Growth growth{.first = std::max<std::size_t>(packed.size() * 3, 256),
                        .step = std::max<std::size_t>(packed.size(), 256),
                        .most = kLargestText + 1};
    auto text = Collect(stream, growth, [](zlib::Stream &at) { return inflate(&at, zlib::kNoFlush); });
    inflateEnd(&stream);
    if (text && text->size() > kLargestText) {
        return {};
    }
    return text;
}

} // namespace corvel
