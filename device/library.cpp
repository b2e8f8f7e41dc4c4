// The driver's library, in the emulated simulator: the phone's own binary instead of a shared object.

#include "driver/library.hpp"

#include "device_library.hpp"
#include "refusal.hpp"

#include <filesystem>

namespace sim::driver {

std::string Library::Inject(const std::string &path) {
    // The packaged library lies beside the directory that this program was built in.
    const std::filesystem::path built = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const std::string file = path.empty() ? (built.parent_path() / "packages/Corvel.dylib").string() : path;
    try {
        device::LoadDeviceLibrary(file);
    } catch (const device::Refusal &refusal) {
        return file + ": " + refusal.what();
    }
    handle_ = this;
    return "";
}

void *Library::Function(const std::string &name) const {
    return handle_ != nullptr ? device::DeviceSymbol(name) : nullptr;
}

} // namespace sim::driver
