#pragma once
// What collections and data call themselves.

namespace sim {

/// Makes the descriptions of arrays, dictionaries and data those of the phone: one element a line, keys in order, texts
/// in quotes where they hold anything but ASCII letters and digits, `{length = 2, bytes = 0x00ff}`.
void InstallDescriptions();

} // namespace sim
