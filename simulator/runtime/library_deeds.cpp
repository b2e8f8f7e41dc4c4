#include "runtime/library_deeds.hpp"

#include "runtime/lasting.hpp"

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <mutex>
#include <netdb.h>
#include <string_view>
#include <sys/socket.h>
#include <unwind.h>

namespace sim {
namespace {

/// Where a program or library lies in memory.
struct Extent {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;

    bool Holds(std::uintptr_t address) const {
        return address >= begin && address < end;
    }
};

struct Watch {
    std::string path;
    Extent program;
    std::mutex mutex;
    std::vector<Deed> deeds;
};

/// False until there is a library to watch: files are opened before anything else runs.
bool watching = false;

Extent ExtentOf(const dl_phdr_info &file) {
    Extent extent;
    for (int i = 0; i < file.dlpi_phnum; ++i) {
        const auto &part = file.dlpi_phdr[i];
        if (part.p_type == PT_LOAD) { // in the order of their addresses
            extent.begin = extent.end == 0 ? file.dlpi_addr + part.p_vaddr : extent.begin;
            extent.end = file.dlpi_addr + part.p_vaddr + part.p_memsz;
        }
    }
    return extent;
}

/// The file that holds the address is the watched one.
bool IsLibrary(std::uintptr_t address) {
    Dl_info info;
    return dladdr(reinterpret_cast<void *>(address), &info) != 0 && info.dli_fname != nullptr &&
           Lasting<Watch>().path == info.dli_fname;
}

struct Walk {
    std::uintptr_t frame; // 0: all frames of the program that stand on top of the stack are passed over
    bool passesProgram = frame == 0;
    bool byLibrary = false;
};

_Unwind_Reason_Code Step(_Unwind_Context *context, void *argument) {
    Walk &walk = *static_cast<Walk *>(argument);
    // The caller of the given frame's function is the first whose stack reaches beyond that frame.
    if (_Unwind_GetCFA(context) < walk.frame + 2 * sizeof(void *)) {
        return _URC_NO_REASON;
    }
    const std::uintptr_t address = _Unwind_GetIP(context) - 1;
    const bool byProgram = Lasting<Watch>().program.Holds(address);
    walk.byLibrary = !byProgram && IsLibrary(address);
    walk.passesProgram = walk.passesProgram && byProgram;
    const bool found = walk.byLibrary || (byProgram && !walk.passesProgram);
    return found ? _URC_END_OF_STACK : _URC_NO_REASON;
}

/// Whether a file may be made, so that its mode is passed as well. O_TMPFILE shares a bit with O_DIRECTORY.
bool HasMode(int flags) {
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

template <class Function> Function *Next(const char *name, Function *) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

void WatchLibrary(const std::string &path) {
    auto &watch = Lasting<Watch>();
    watch.path = path;
    dl_iterate_phdr(
        [](dl_phdr_info *file, std::size_t, void *program) {
            *static_cast<Extent *>(program) = ExtentOf(*file);
            return 1; // the first is the program itself
        },
        &watch.program);
    watching = true;
}

void NoteDeed(const char *kind, const char *what, const void *frame) {
    // Foundation on the desk reads texts and time zones of its own.
    const std::string_view path = what != nullptr ? what : "";
    if (!watching || path.starts_with("/usr/share/") || path.starts_with("/etc/")) {
        return;
    }
    Walk walk{reinterpret_cast<std::uintptr_t>(frame)};
    _Unwind_Backtrace(&Step, &walk);
    if (walk.byLibrary) {
        auto &watch = Lasting<Watch>();
        const std::lock_guard lock(watch.mutex);
        watch.deeds.push_back({kind, std::string(path)});
    }
}

const std::vector<Deed> &LibraryDeeds() {
    return Lasting<Watch>().deeds;
}

void ForgetLibraryDeeds() {
    Lasting<Watch>().deeds.clear();
}

} // namespace sim

// The system's functions that lead outside, in front of the real ones. Its headers have reserved names for arguments.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)

extern "C" {

int open(const char *path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = sim::HasMode(flags) ? va_arg(rest, mode_t) : mode_t{0};
    va_end(rest);
    sim::NoteDeed("file", path, __builtin_frame_address(0));
    return sim::Next("open", &open)(path, flags, mode);
}

int open64(const char *path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = sim::HasMode(flags) ? va_arg(rest, mode_t) : mode_t{0};
    va_end(rest);
    sim::NoteDeed("file", path, __builtin_frame_address(0));
    return sim::Next("open64", &open64)(path, flags, mode);
}

std::FILE *fopen(const char *path, const char *mode) {
    sim::NoteDeed("file", path, __builtin_frame_address(0));
    return sim::Next("fopen", &fopen)(path, mode);
}

std::FILE *fopen64(const char *path, const char *mode) {
    sim::NoteDeed("file", path, __builtin_frame_address(0));
    return sim::Next("fopen64", &fopen64)(path, mode);
}

int unlink(const char *path) noexcept {
    sim::NoteDeed("file", path, __builtin_frame_address(0));
    return sim::Next("unlink", &unlink)(path);
}

int rename(const char *from, const char *to) noexcept {
    sim::NoteDeed("file", to, __builtin_frame_address(0));
    return sim::Next("rename", &rename)(from, to);
}

int mkdir(const char *path, mode_t mode) noexcept {
    sim::NoteDeed("file", path, __builtin_frame_address(0));
    return sim::Next("mkdir", &mkdir)(path, mode);
}

int socket(int domain, int type, int protocol) noexcept {
    sim::NoteDeed("network", "socket", __builtin_frame_address(0));
    return sim::Next("socket", &socket)(domain, type, protocol);
}

int getaddrinfo(const char *node, const char *service, const addrinfo *hints, addrinfo **result) {
    sim::NoteDeed("network", node, __builtin_frame_address(0));
    return sim::Next("getaddrinfo", &getaddrinfo)(node, service, hints, result);
}

void *dlopen(const char *path, int mode) noexcept {
    sim::NoteDeed("code", path, __builtin_frame_address(0));
    return sim::Next("dlopen", &dlopen)(path, mode);
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
