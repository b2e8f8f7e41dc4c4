#include "runtime/failures.hpp"

#include <bitset>
#include <dlfcn.h>
#include <iterator>
#include <zlib.h>

namespace sim {
namespace {

constexpr FailureRow kFailures[] = {
    {Failure::kAlbum, "album"},
    {Failure::kDefaults, "defaults"},
    {Failure::kMemory, "memory"},
    {Failure::kPasteboard, "pasteboard"},
};

std::bitset<std::size(kFailures)> failing;

template <class Function> Function *Next(const char *name, Function *) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

std::span<const FailureRow> Failures() {
    return kFailures;
}

void SetFailing(Failure failure, bool fails) {
    failing.set(static_cast<std::size_t>(failure), fails);
}

bool Fails(Failure failure) {
    return failing.test(static_cast<std::size_t>(failure));
}

} // namespace sim

// What a library calls for packing and unpacking stands here in front of zlib's own; drawing uses other functions of it.

int deflateInit_(z_streamp stream, int level, const char *version, int size) {
    return sim::Fails(sim::Failure::kMemory) ? Z_MEM_ERROR
                                             : sim::Next("deflateInit_", &deflateInit_)(stream, level, version, size);
}

int inflateInit_(z_streamp stream, const char *version, int size) {
    return sim::Fails(sim::Failure::kMemory) ? Z_MEM_ERROR
                                             : sim::Next("inflateInit_", &inflateInit_)(stream, version, size);
}
