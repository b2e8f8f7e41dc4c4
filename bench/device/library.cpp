// The driver's library, in the program that measures what a load takes: the process ends with the last initialiser.

#include "driver/library.hpp"

#include "class_changes.hpp"
#include "device_library.hpp"
#include "floor.hpp"
#include "hosts/host.hpp"
#include "refusal.hpp"

#include <cstdio>
#include <string_view>
#include <unistd.h>

namespace sim::driver {
namespace {

/// Where there is one app, all are: the classes of the others too.
void RegisterOtherApps() {
    if (objc_getClass("HTSLiveCommentFragment") == nullptr) {
        return;
    }
    for (const hosts::HostEntry &entry : hosts::Hosts()) {
        if (std::string_view(entry.name) != "douyin") {
            entry.make()->Register();
        }
    }
}

} // namespace

// The driver's class has state where a library is opened for good.
// NOLINTBEGIN(readability-convert-member-functions-to-static)
std::string Library::Inject(const std::string &path) {
    RegisterOtherApps();
    try {
        if (path == "floor") {
            bench::PrepareFloor();
            bench::Set(bench::kBegin);
            bench::RunFloor();
        } else {
            device::MapDeviceLibrary(path, &bench::ClassChange);
            bench::Set(bench::kBegin);
            device::RunInitialisers();
        }
    } catch (const device::Refusal &refusal) {
        return path + ": " + refusal.what();
    }
    bench::Set(bench::kEnd);
    std::printf("changes\t%d\n", bench::classChanges);
    std::fflush(stdout);
    _exit(0);
}

void *Library::Function(const std::string &) const {
    return nullptr;
}
// NOLINTEND(readability-convert-member-functions-to-static)

} // namespace sim::driver
