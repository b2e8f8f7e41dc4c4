// What a library calls for packing and unpacking, in front of zlib's own: for want of memory it fails on demand.
// Drawing uses other functions of zlib.

#include "runtime/failures.hpp"

#include <dlfcn.h>
#include <zlib.h>

namespace {

template <class Function> Function *Next(const char *name, Function *) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

int deflateInit_(z_streamp stream, int level, const char *version, int size) {
    return sim::Fails(sim::Failure::kMemory) ? Z_MEM_ERROR
                                             : Next("deflateInit_", &deflateInit_)(stream, level, version, size);
}

int inflateInit_(z_streamp stream, const char *version, int size) {
    return sim::Fails(sim::Failure::kMemory) ? Z_MEM_ERROR : Next("inflateInit_", &inflateInit_)(stream, version, size);
}
