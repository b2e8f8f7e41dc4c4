#include "macho_file.hpp"

#include "byte_reader.hpp"
#include "sha256.hpp"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace device {
namespace {

// <mach-o/loader.h>, <mach/machine.h>
constexpr std::uint32_t kMagic64 = 0xfeedfacf;
constexpr std::uint32_t kCpuArm64 = 0x0100000c;
constexpr std::uint32_t kTypeDylib = 6;
constexpr std::uint32_t kPlatformIos = 2;
enum LoadCommand : std::uint32_t {
    kSymtab = 0x2,
    kDysymtab = 0xb,
    kLoadDylib = 0xc,
    kIdDylib = 0xd,
    kSegment64 = 0x19,
    kUuid = 0x1b,
    kCodeSignature = 0x1d,
    kFunctionStarts = 0x26,
    kDataInCode = 0x29,
    kSourceVersion = 0x2a,
    kEncryptionInfo64 = 0x2c,
    kBuildVersion = 0x32,
    kLoadWeakDylib = 0x80000018,
    kExportsTrie = 0x80000033,
    kChainedFixups = 0x80000034,
};

std::string FixedName(std::span<const std::uint8_t> bytes, std::uint64_t offset) {
    std::string name;
    for (std::uint64_t i = 0; i < 16; ++i) {
        const char unit = ReadAt<char>(bytes, offset + i, "segment name");
        if (unit == '\0') {
            break;
        }
        name += unit;
    }
    return name;
}

/// The file range that a linkedit_data_command points to, inside the file.
FileRange LinkEditRange(const MachoFile &file, std::uint64_t command, const char *what) {
    const FileRange range{ReadAt<std::uint32_t>(file.bytes, command + 8, what),
                          ReadAt<std::uint32_t>(file.bytes, command + 12, what)};
    if (range.offset > file.bytes.size() || range.size > file.bytes.size() - range.offset) {
        throw Refusal(std::string("truncated ") + what);
    }
    return range;
}

void ReadSegment(MachoFile &file, std::uint64_t command) {
    const std::span<const std::uint8_t> bytes(file.bytes);
    Segment segment{.name = FixedName(bytes, command + 8),
                    .address = ReadAt<std::uint64_t>(bytes, command + 24, "segment"),
                    .size = ReadAt<std::uint64_t>(bytes, command + 32, "segment"),
                    .fileOffset = ReadAt<std::uint64_t>(bytes, command + 40, "segment"),
                    .fileSize = ReadAt<std::uint64_t>(bytes, command + 48, "segment"),
                    .protection = ReadAt<std::uint32_t>(bytes, command + 60, "segment")};
    // Far more than any library has, and far from where sums of addresses overflow.
    constexpr std::uint64_t kMostAddressSpace = 1ULL << 32;
    if (segment.address > kMostAddressSpace || segment.size > kMostAddressSpace - segment.address) {
        throw Refusal("segment " + segment.name + " beyond the address space");
    }
    if (segment.fileOffset > bytes.size() || segment.fileSize > bytes.size() - segment.fileOffset ||
        segment.fileSize > segment.size) {
        throw Refusal("truncated segment " + segment.name);
    }
    const auto count = ReadAt<std::uint32_t>(bytes, command + 64, "segment");
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint64_t at = command + 72 + i * 80ULL;
        const Section section{.segment = segment.name,
                              .name = FixedName(bytes, at),
                              .address = ReadAt<std::uint64_t>(bytes, at + 32, "section"),
                              .size = ReadAt<std::uint64_t>(bytes, at + 40, "section")};
        if (section.address < segment.address || section.address - segment.address > segment.size ||
            section.size > segment.size - (section.address - segment.address)) {
            throw Refusal("section " + section.name + " outside its segment");
        }
        file.sections.push_back(section);
    }
    file.segments.push_back(std::move(segment));
}

void ReadLoadCommand(MachoFile &file, std::uint32_t kind, std::uint64_t command) {
    const std::span<const std::uint8_t> bytes(file.bytes);
    switch (kind) {
    case kSegment64:
        ReadSegment(file, command);
        break;
    case kLoadDylib:
    case kLoadWeakDylib:
        file.libraries.push_back(
            StringAt(bytes, command + ReadAt<std::uint32_t>(bytes, command + 8, "library name"), "library name"));
        break;
    case kChainedFixups:
        file.chainedFixups = LinkEditRange(file, command, "chained fixups");
        break;
    case kExportsTrie:
        file.exportsTrie = LinkEditRange(file, command, "exports trie");
        break;
    case kCodeSignature:
        file.codeSignature = LinkEditRange(file, command, "code signature");
        break;
    case kBuildVersion:
        if (ReadAt<std::uint32_t>(bytes, command + 8, "build version") != kPlatformIos) {
            throw Refusal("built for another platform than iOS");
        }
        break;
    case kEncryptionInfo64:
        if (ReadAt<std::uint32_t>(bytes, command + 16, "encryption info") != 0) {
            throw Refusal("encrypted");
        }
        break;
    case kSymtab:
    case kDysymtab:
    case kIdDylib:
    case kUuid:
    case kFunctionStarts:
    case kDataInCode:
    case kSourceVersion:
        break; // nothing in them changes what runs
    default: {
        char number[32];
        std::snprintf(number, sizeof number, "0x%x", kind);
        throw Refusal(std::string("unknown load command ") + number);
    }
    }
}

} // namespace

const Section *MachoFile::FindSection(const std::string &name) const {
    const auto found = std::ranges::find(sections, name, &Section::name);
    return found != sections.end() ? &*found : nullptr;
}

std::uint64_t MachoFile::AddressSpace() const {
    std::uint64_t end = 0;
    for (const Segment &segment : segments) {
        end = std::max(end, segment.address + segment.size);
    }
    return end;
}

MachoFile ReadMachoFile(const std::string &path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        throw Refusal("cannot be read");
    }
    return ParseMachoFile({std::istreambuf_iterator<char>(stream), {}});
}

MachoFile ParseMachoFile(std::vector<std::uint8_t> content) {
    MachoFile file;
    file.bytes = std::move(content);
    const std::span<const std::uint8_t> bytes(file.bytes);
    if (ReadAt<std::uint32_t>(bytes, 0, "header") != kMagic64) {
        throw Refusal("not a 64-bit Mach-O file");
    }
    if (ReadAt<std::uint32_t>(bytes, 4, "header") != kCpuArm64) {
        throw Refusal("built for another processor than arm64");
    }
    if (ReadAt<std::uint32_t>(bytes, 12, "header") != kTypeDylib) {
        throw Refusal("not a dynamic library");
    }
    const auto commands = ReadAt<std::uint32_t>(bytes, 16, "header");
    std::uint64_t at = 32;
    for (std::uint32_t i = 0; i < commands; ++i) {
        const auto size = ReadAt<std::uint32_t>(bytes, at + 4, "load command");
        if (size < 8 || size > bytes.size() - at) {
            throw Refusal("truncated load command");
        }
        ReadLoadCommand(file, ReadAt<std::uint32_t>(bytes, at, "load command"), at);
        at += size;
    }
    if (file.segments.empty() || file.chainedFixups.size == 0 || file.codeSignature.size == 0) {
        throw Refusal("no segments, chained fixups or signature");
    }
    return file;
}

void CheckPageHashes(const MachoFile &file) {
    // <kern/cs_blobs.h>; everything in the signature is big-endian.
    constexpr std::uint32_t kSuperBlob = 0xfade0cc0;
    constexpr std::uint32_t kCodeDirectory = 0xfade0c02;
    const auto signature = file.Bytes(file.codeSignature);
    if (ReadBigAt(signature, 0, "signature") != kSuperBlob) {
        throw Refusal("signature of an unknown kind");
    }
    const auto count = ReadBigAt(signature, 8, "signature");
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto offset = ReadBigAt(signature, 12 + i * 8ULL + 4, "signature");
        if (ReadBigAt(signature, offset, "signature") != kCodeDirectory) {
            continue;
        }
        const auto hashOffset = ReadBigAt(signature, offset + 16ULL, "code directory");
        const auto slots = ReadBigAt(signature, offset + 28ULL, "code directory");
        const auto codeLimit = ReadBigAt(signature, offset + 32ULL, "code directory");
        const auto hashSize = ReadAt<std::uint8_t>(signature, offset + 36ULL, "code directory");
        const auto pageBits = ReadAt<std::uint8_t>(signature, offset + 39ULL, "code directory");
        constexpr std::uint8_t kMostPageBits = 32; // so that no product overflows
        if (pageBits > kMostPageBits) {
            throw Refusal("code directory that does not fit the file");
        }
        const std::uint64_t pageSize = 1ULL << pageBits;
        const std::uint64_t pages = (codeLimit + pageSize - 1) / pageSize;
        if (hashSize != 32 || codeLimit != file.codeSignature.offset || slots != pages) {
            throw Refusal("code directory that does not fit the file");
        }
        for (std::uint64_t page = 0; page < slots; ++page) {
            const std::uint64_t begin = page * pageSize;
            const std::uint64_t end = std::min<std::uint64_t>(begin + pageSize, codeLimit);
            const auto digest = Sha256(std::span(file.bytes).subspan(begin, end - begin));
            for (std::size_t byte = 0; byte < digest.size(); ++byte) {
                if (ReadAt<std::uint8_t>(signature, offset + hashOffset + page * hashSize + byte, "page hash") !=
                    digest[byte]) {
                    throw Refusal("page " + std::to_string(page) + " differs from its signature");
                }
            }
        }
        return;
    }
    throw Refusal("signature without a code directory");
}

} // namespace device
