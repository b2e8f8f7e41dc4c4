#pragma once
// The end of every object's life, watched for those who attach something to objects.

namespace sim {

/// Replaces NSObject's release and dealloc so that weak references to an object are cleared with its last reference
/// and its associated objects are released with its memory.
void InstallDeallocationHooks();

} // namespace sim
