#pragma once
// The least that any library like ours does as it is loaded.

namespace bench {

/// Looks up the selectors, as the dynamic linker does before any code of an image runs.
void PrepareFloor();

/// Makes the calls of the platform that registration, scheduling and hooks cannot do without, each once, and nothing
/// else. What it registers does nothing.
void RunFloor();

} // namespace bench
