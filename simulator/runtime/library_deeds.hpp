#pragma once
// What the injected library does outside of itself: files, the network, further code, preferences, pasteboard, album.

#include <string>
#include <vector>

namespace sim {

struct Deed {
    std::string kind; // file, network, code, key, pasteboard, album
    std::string what;
};

/// From now on deeds of the library in that file are noted. Another build of it, on an emulated processor, is not seen.
void WatchLibrary(const std::string &path);

/// Notes a deed when it is the library's: of the library and this program, the one that has called last, on the stack
/// above `frame`, is the library. The system's own libraries between do not count. A method of the platform does not
/// know its caller's frame: with null, whatever of this program is on top of the stack is taken for the method.
void NoteDeed(const char *kind, const char *what, const void *frame);

/// All that have been noted.
const std::vector<Deed> &LibraryDeeds();

/// Drops them.
void ForgetLibraryDeeds();

} // namespace sim
