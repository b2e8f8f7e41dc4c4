#pragma once
// What every fuzzer of this folder stands on.

#include "apple/foundation/string.hpp"
#include "runtime/autorelease.hpp"

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// Installs the platform without a screen, once, its state in a directory that goes with the process.
void InstallPlatform();

/// A new directory that is removed when the process ends.
const char *MakeStateDirectory();

/// Ends the process with the message unless the condition holds: what a fuzzer calls a finding.
void Require(bool condition, const char *message);

/// The text that a user may have copied. A first byte of 1 stands for a configuration that packs the rest, 2 for one
/// whose zlib stream is the rest, 3 for UTF-16 units; without such a byte all of it is UTF-8. Nil when it is not.
ns::String CopiedText(const std::uint8_t *bytes, std::size_t size);

} // namespace fuzz
