#include "symbols.hpp"

#include "byte_reader.hpp"

#include <fstream>
#include <iterator>
#include <vector>

namespace device {
namespace {

// <mach-o/nlist.h>
constexpr std::uint8_t kDebugEntry = 0xe0;
constexpr std::uint8_t kTypeMask = 0x0e;
constexpr std::uint8_t kDefinedInSection = 0x0e;
constexpr std::uint32_t kSymtabCommand = 0x2;

std::map<std::uint64_t, std::string> ReadTable(std::span<const std::uint8_t> bytes, std::uint64_t command) {
    const auto symbols = ReadAt<std::uint32_t>(bytes, command + 8, "symbol table");
    const auto count = ReadAt<std::uint32_t>(bytes, command + 12, "symbol table");
    const auto strings = ReadAt<std::uint32_t>(bytes, command + 16, "symbol table");
    std::map<std::uint64_t, std::string> names;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint64_t at = symbols + i * 16ULL;
        const auto type = ReadAt<std::uint8_t>(bytes, at + 4, "symbol");
        if ((type & kDebugEntry) == 0 && (type & kTypeMask) == kDefinedInSection) {
            names[ReadAt<std::uint64_t>(bytes, at + 8, "symbol")] = StringAt(
                bytes, strings + static_cast<std::uint64_t>(ReadAt<std::uint32_t>(bytes, at, "symbol")), "symbol name");
        }
    }
    return names;
}

} // namespace

std::map<std::uint64_t, std::string> ReadSymbols(const std::string &path) {
    std::ifstream stream(path, std::ios::binary);
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(stream), {}};
    if (bytes.empty()) {
        return {};
    }
    const auto commands = ReadAt<std::uint32_t>(bytes, 16, "header");
    std::uint64_t at = 32;
    for (std::uint32_t i = 0; i < commands; ++i) {
        if (ReadAt<std::uint32_t>(bytes, at, "load command") == kSymtabCommand) {
            return ReadTable(bytes, at);
        }
        at += ReadAt<std::uint32_t>(bytes, at + 4, "load command");
    }
    return {};
}

} // namespace device
