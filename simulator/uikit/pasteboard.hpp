#pragma once
// UIPasteboard: the general one, kept in a file between runs.

#include "apple/uikit/pasteboard.hpp"

#include <string>

namespace sim {

/// Names the file that keeps what was copied, as UTF-16 units in the machine's order, and reads it if it is there.
/// Before the pasteboard's first use; without it nothing outlives the process.
void SetPasteboardFile(const std::string &path);

} // namespace sim
