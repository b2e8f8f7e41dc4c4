#pragma once
// zlib watched, and failing on demand: the test program defines these functions in front of the real library's.

#include <cstddef>

namespace corvel::test {

/// Which of zlib's functions fail while one of these lives.
struct ZlibFailure {
    bool deflateInit = false;
    bool deflate = false;
    bool inflateInit = false;
};

/// Makes zlib fail for its extent.
class FailingZlib {
  public:
    explicit FailingZlib(ZlibFailure failure);
    FailingZlib(const FailingZlib &) = delete;
    FailingZlib &operator=(const FailingZlib &) = delete;
    ~FailingZlib();
};

/// The largest output, in bytes, that decompression has been given room for since the last call of this.
std::size_t TakeLargestRoom();

} // namespace corvel::test
