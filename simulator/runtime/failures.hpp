#pragma once
// What the platform may refuse to do.

#include <span>
#include <string_view>

namespace sim {

enum class Failure { kAlbum, kDefaults, kMemory, kPasteboard };

struct FailureRow {
    Failure failure;
    const char *name; // as scripts have it
};

/// All of them, in the order of the enumeration.
std::span<const FailureRow> Failures();

/// Begins or ends a failure.
void SetFailing(Failure failure, bool fails);

/// Whether it fails now.
bool Fails(Failure failure);

} // namespace sim
