#include "driver/library.hpp"

#include <dlfcn.h>
#include <filesystem>

namespace sim::driver {

std::string Library::Inject(const std::string &path) {
    const std::string file =
        path.empty() ? (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "libCorvel.so").string() : path;
    handle_ = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    return handle_ != nullptr ? "" : dlerror();
}

void *Library::Function(const std::string &name) const {
    return handle_ != nullptr ? dlsym(handle_, name.c_str()) : nullptr;
}

} // namespace sim::driver
