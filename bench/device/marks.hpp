#pragma once
// How a program on the emulated processor tells the counting plugin where to begin and to end: by system calls of
// numbers that no system has. Without the plugin they do nothing.

namespace bench {

enum Mark : long { kBegin = 0x436f7201, kPause, kResume, kEnd };

} // namespace bench
