// The loader of the phone's binary: any file is loaded or refused, and nothing outside of it is read or written.

#include "mapped_image.hpp"
#include "refusal.hpp"

#include <array>

namespace {

/// Runs one step of the loader; false when it refuses.
template <class Step> bool Taken(const Step &step) {
    try {
        step();
    } catch (const device::Refusal &) {
        return false;
    }
    return true;
}

void Load(const device::MachoFile &file) {
    static std::array<char, 64> imported{};
    const device::MappedImage image(file, [](const std::string &symbol) -> void * {
        return symbol.size() < imported.size() ? &imported[symbol.size()] : nullptr;
    });
    for (const device::Section &section : file.sections) {
        const std::span<const std::uint8_t> bytes = image.SectionOf<std::uint8_t>(section.name);
        if (!bytes.empty()) {
            static_cast<void>(*static_cast<const volatile std::uint8_t *>(&bytes.front()));
            static_cast<void>(*static_cast<const volatile std::uint8_t *>(&bytes.back()));
        }
    }
    for (const char *symbol : {"", "_InitUI", "_DY_SendMessage"}) {
        static_cast<void>(Taken([&] { image.FindExport(symbol); }));
    }
    image.Protect();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    device::MachoFile file;
    if (Taken([&] { file = device::ParseMachoFile(std::vector(bytes, bytes + size)); })) {
        // Whoever changes a file can sign it again, so a wrong hash does not end the run.
        Taken([&] { device::CheckPageHashes(file); });
        Taken([&] { Load(file); });
    }
    return 0;
}
