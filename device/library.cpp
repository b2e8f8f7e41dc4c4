// The driver's library, in the emulated simulator: the phone's own binary instead of a shared object.

#include "driver/library.hpp"

#include "device_library.hpp"
#include "refusal.hpp"

namespace sim::driver {

std::string Library::Inject(const std::string &path) {
    try {
        device::MapDeviceLibrary(path);
        device::RunInitialisers();
    } catch (const device::Refusal &refusal) {
        return path + ": " + refusal.what();
    }
    handle_ = this;
    return "";
}

void *Library::Function(const std::string &name) const {
    return handle_ != nullptr ? device::DeviceSymbol(name) : nullptr;
}

} // namespace sim::driver
