#include "driver/library.hpp"

#include <dlfcn.h>

namespace sim::driver {

std::string Library::Inject(const std::string &path) {
    handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    return handle_ != nullptr ? "" : dlerror();
}

void *Library::Function(const std::string &name) const {
    return handle_ != nullptr ? dlsym(handle_, name.c_str()) : nullptr;
}

} // namespace sim::driver
