#pragma once
// Base64 as the phone decodes it.

namespace sim {

/// Makes NSData refuse texts whose padding is lacking, superfluous or misplaced, which the desktop's takes.
void InstallBase64();

} // namespace sim
