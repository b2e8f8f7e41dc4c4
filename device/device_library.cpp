#include "device_library.hpp"

#include "crash_report.hpp"
#include "objc_bridge.hpp"
#include "refusal.hpp"
#include "unwinding.hpp"

#include <dlfcn.h>
#include <memory>

namespace device {
namespace {

struct Loaded {
    MachoFile file;
    std::unique_ptr<MappedImage> image;
};

Loaded &TheLibrary() {
    static Loaded loaded;
    return loaded;
}

void *ResolveImport(const std::string &symbol) {
    if (void *bridged = BridgedSymbol(symbol)) {
        return bridged;
    }
    // C names carry a leading underscore in Mach-O and none here.
    return symbol.starts_with('_') ? dlsym(RTLD_DEFAULT, symbol.c_str() + 1) : nullptr;
}

} // namespace

void MapDeviceLibrary(const std::string &path, const ImportResolver &ahead) {
    Loaded &loaded = TheLibrary();
    loaded.file = ReadMachoFile(path);
    CheckPageHashes(loaded.file);
    loaded.image = std::make_unique<MappedImage>(loaded.file, [&](const std::string &symbol) {
        void *const address = ahead(symbol);
        return address != nullptr ? address : ResolveImport(symbol);
    });
    const MappedImage &image = *loaded.image;
    PrepareObjectiveC(image);
    RegisterUnwinding(image);
    if (!image.SectionOf<std::uint8_t>("__mod_init_func").empty()) {
        throw Refusal("initialisers in pointer form");
    }
    image.Protect();
    ReportCrashes(image, path + ".dSYM/Contents/Resources/DWARF/Corvel.dylib");
}

void RunInitialisers() {
    const MappedImage &image = *TheLibrary().image;
    for (const std::uint32_t offset : image.SectionOf<const std::uint32_t>("__init_offsets")) {
        reinterpret_cast<void (*)()>(image.base() + offset)();
    }
}

void *DeviceSymbol(const std::string &name) {
    return TheLibrary().image != nullptr ? TheLibrary().image->FindExport("_" + name) : nullptr;
}

} // namespace device
