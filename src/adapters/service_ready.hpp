#pragma once
// The announcement that comments can be sent, which start-up answers by building the overlay.

namespace corvel {

/// Posts "DanmuServiceReady" (object nil) synchronously. It may come any number of times in a run; an exception out of
/// an observer ends here, because the hooked host method that brings us here knows nothing of it.
void PostDanmuServiceReady();

} // namespace corvel
