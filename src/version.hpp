#pragma once
// The version of the library and of its packages.

namespace corvel {

/// ios/package reads it here as well.
inline constexpr const char *kVersion = "1.1.1";

} // namespace corvel
