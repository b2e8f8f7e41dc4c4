#pragma once
// Compression of configuration texts in the zlib format (RFC 1950).

#include "settings/byte_buffer.hpp"

#include <optional>

namespace corvel {

/// The largest text of a configuration, in bytes. The bound is our own: 144 comments of 1,000 characters and a full log
/// come to half of it, and JSON of many small values takes more than a hundred times its size once it is read.
inline constexpr std::size_t kLargestText = std::size_t{1} << 20;

/// The compressed form; nothing when zlib cannot start or finish, or memory runs out. The text must not be empty.
std::optional<ByteBuffer> Deflate(std::span<const unsigned char> text);

/// The text of a compressed form, perhaps empty. Nothing when the stream is broken, cut short or wrong in its checksum,
/// when the text is longer than kLargestText, or when memory runs out. Bytes after the stream's end do not count.
std::optional<ByteBuffer> Inflate(std::span<const unsigned char> packed);

} // namespace corvel
