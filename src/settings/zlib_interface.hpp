#pragma once
// The part of zlib's C interface that the library calls, as version 1.2.11 lays it out on 64-bit systems. Written out
// here because the phone's library is built without the headers of the system that builds it.

namespace corvel::zlib {

/// What one stream's calls share. The caller moves on the two windows of bytes, zlib advances them.
struct Stream {
    const unsigned char *nextIn;
    unsigned availableIn;
    unsigned long totalIn;
    unsigned char *nextOut;
    unsigned availableOut;
    unsigned long totalOut;
    const char *message;
    void *state;
    /// Null for zlib's own allocation.
    void *(*allocate)(void *opaque, unsigned items, unsigned size);
    void (*free)(void *opaque, void *address);
    void *opaque;
    int dataType;
    unsigned long adler;
    unsigned long reserved;
};
static_assert(sizeof(Stream) == 112, "zlib refuses a stream of another size");

/// Results of the calls below.
inline constexpr int kOk = 0;
inline constexpr int kStreamEnd = 1;

/// How much of its input a call is to flush.
inline constexpr int kNoFlush = 0;
inline constexpr int kFinish = 4;

/// The version that the caller was written for.
inline constexpr const char *kVersion = "1.2.11";

} // namespace corvel::zlib

extern "C" {
/// Starts compression at a level from 0 to 9; the version and the stream's size must suit the zlib that is present.
int deflateInit_(corvel::zlib::Stream *stream, int level, const char *version, int streamSize);
int deflate(corvel::zlib::Stream *stream, int flush);
int deflateEnd(corvel::zlib::Stream *stream);
/// Starts decompression, on the same terms.
int inflateInit_(corvel::zlib::Stream *stream, const char *version, int streamSize);
int inflate(corvel::zlib::Stream *stream, int flush);
int inflateEnd(corvel::zlib::Stream *stream);
}
