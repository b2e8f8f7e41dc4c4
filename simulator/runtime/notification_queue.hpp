#pragma once
// Notification observers made of blocks.

namespace sim {

/// Makes -[NSNotificationCenter addObserverForName:object:queue:usingBlock:] deliver as the phone does: at once, on
/// the posting thread, for no queue and, on the main thread, for the main queue. (Foundation of the desktop runs the
/// main queue's blocks on other threads.)
void InstallNotificationObservers();

} // namespace sim
