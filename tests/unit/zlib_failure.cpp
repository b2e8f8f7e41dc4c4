#include "zlib_failure.hpp"

#include "settings/zlib_interface.hpp"

#include <algorithm>
#include <dlfcn.h>
#include <utility>

namespace {

constexpr int kStreamError = -2;
constexpr int kMemoryError = -4;

corvel::test::ZlibFailure current;
std::size_t largestRoom = 0;

template <class Function> Function *RealFunction(const char *name, Function *) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

namespace corvel::test {

FailingZlib::FailingZlib(ZlibFailure failure) {
    current = failure;
}

FailingZlib::~FailingZlib() {
    current = {};
}

std::size_t TakeLargestRoom() {
    return std::exchange(largestRoom, 0);
}

} // namespace corvel::test

int deflateInit_(corvel::zlib::Stream *stream, int level, const char *version, int streamSize) {
    return current.deflateInit ? kMemoryError
                               : RealFunction("deflateInit_", &deflateInit_)(stream, level, version, streamSize);
}

int deflate(corvel::zlib::Stream *stream, int flush) {
    return current.deflate ? kStreamError : RealFunction("deflate", &deflate)(stream, flush);
}

int inflateInit_(corvel::zlib::Stream *stream, const char *version, int streamSize) {
    return current.inflateInit ? kMemoryError
                               : RealFunction("inflateInit_", &inflateInit_)(stream, version, streamSize);
}

int inflate(corvel::zlib::Stream *stream, int flush) {
    largestRoom = std::max<std::size_t>(largestRoom, stream->totalOut + stream->availableOut);
    return RealFunction("inflate", &inflate)(stream, flush);
}
