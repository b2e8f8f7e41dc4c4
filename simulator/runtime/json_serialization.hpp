#pragma once
// NSJSONSerialization as the phone has it.

namespace sim {

/// Replaces Foundation's reader, which takes text that is no JSON (trailing characters and commas, raw control
/// characters) and reads every number as a double, and its writer, which spaces its output, escapes everything beyond
/// ASCII and leaves out what it cannot write.
void InstallJsonSerialization();

} // namespace sim
