#include "chained_fixups.hpp"

#include "byte_reader.hpp"

namespace device {
namespace {

// <mach-o/fixup-chains.h>
constexpr std::uint32_t kImportFormatPlain = 1;
constexpr std::uint16_t kPointer64 = 2;
constexpr std::uint16_t kPointer64Offset = 6;
constexpr std::uint16_t kPageWithoutFixups = 0xffff;
constexpr std::uint16_t kPageWithSeveralChains = 0x8000;
constexpr std::uint64_t kStride = 4;

std::vector<void *> BindImports(std::span<const std::uint8_t> fixups, const MachoFile &file,
                                const ImportResolver &resolver) {
    const auto importsOffset = ReadAt<std::uint32_t>(fixups, 8, "chained fixups");
    const auto symbolsOffset = ReadAt<std::uint32_t>(fixups, 12, "chained fixups");
    const auto count = ReadAt<std::uint32_t>(fixups, 16, "chained fixups");
    if (ReadAt<std::uint32_t>(fixups, 20, "chained fixups") != kImportFormatPlain ||
        ReadAt<std::uint32_t>(fixups, 24, "chained fixups") != 0) {
        throw Refusal("chained fixups with another import format");
    }
    std::vector<void *> addresses;
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto import = ReadAt<std::uint32_t>(fixups, importsOffset + i * 4ULL, "import");
        const auto ordinal = static_cast<std::int8_t>(import & 0xff);
        const std::string symbol = StringAt(fixups, symbolsOffset + (import >> 9), "import name");
        if (ordinal < 1 || static_cast<std::size_t>(ordinal) > file.libraries.size()) {
            throw Refusal("import " + symbol + " from no library of the image");
        }
        void *address = resolver(symbol);
        if (address == nullptr) {
            throw Refusal("unbound import " + symbol);
        }
        addresses.push_back(address);
    }
    return addresses;
}

/// Writes the pointers of one chain, from its first place on.
void FixChain(const MachoFile &file, std::uint8_t *base, std::uint64_t place, std::uint16_t format,
              const std::vector<void *> &imports) {
    for (;;) {
        if (place > file.AddressSpace() || file.AddressSpace() - place < 8) {
            throw Refusal("fixup outside the image");
        }
        std::uint64_t raw = 0;
        std::memcpy(&raw, base + place, 8);
        const std::uint64_t next = raw >> 51 & 0xfff;
        std::uint64_t value = 0;
        if (raw >> 63 != 0) {
            const std::uint64_t ordinal = raw & 0xffffff;
            if (ordinal >= imports.size()) {
                throw Refusal("fixup bound to import " + std::to_string(ordinal) + " of none such");
            }
            value = reinterpret_cast<std::uint64_t>(imports[ordinal]) + (raw >> 24 & 0xff);
        } else {
            const std::uint64_t target = raw & 0xfffffffff;
            const std::uint64_t offset = format == kPointer64 ? target - file.segments.front().address : target;
            if (offset >= file.AddressSpace()) {
                throw Refusal("fixup that points outside the image");
            }
            value = reinterpret_cast<std::uint64_t>(base) + offset + ((raw >> 36 & 0xff) << 56);
        }
        std::memcpy(base + place, &value, 8);
        if (next == 0) {
            return;
        }
        place += next * kStride;
    }
}

} // namespace

void ApplyChainedFixups(const MachoFile &file, std::uint8_t *base, const ImportResolver &resolver) {
    const auto fixups = file.Bytes(file.chainedFixups);
    const std::vector<void *> imports = BindImports(fixups, file, resolver);
    const auto starts = ReadAt<std::uint32_t>(fixups, 4, "chained fixups");
    const auto segments = ReadAt<std::uint32_t>(fixups, starts, "chained fixups");
    for (std::uint32_t i = 0; i < segments; ++i) {
        const auto info = ReadAt<std::uint32_t>(fixups, starts + 4ULL + i * 4ULL, "chained fixups");
        if (info == 0) {
            continue;
        }
        const std::uint64_t segment = starts + static_cast<std::uint64_t>(info);
        const auto pageSize = ReadAt<std::uint16_t>(fixups, segment + 4, "chain starts");
        const auto format = ReadAt<std::uint16_t>(fixups, segment + 6, "chain starts");
        const auto offset = ReadAt<std::uint64_t>(fixups, segment + 8, "chain starts");
        const auto pages = ReadAt<std::uint16_t>(fixups, segment + 20, "chain starts");
        if (format != kPointer64 && format != kPointer64Offset) {
            throw Refusal("fixups of unknown pointer format " + std::to_string(format));
        }
        for (std::uint16_t page = 0; page < pages; ++page) {
            const auto start = ReadAt<std::uint16_t>(fixups, segment + 22 + page * 2ULL, "chain starts");
            if (start == kPageWithoutFixups) {
                continue;
            }
            if ((start & kPageWithSeveralChains) != 0) {
                throw Refusal("page with several fixup chains");
            }
            FixChain(file, base, offset + static_cast<std::uint64_t>(page) * pageSize + start, format, imports);
        }
    }
}

} // namespace device
