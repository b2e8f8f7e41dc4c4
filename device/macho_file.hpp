#pragma once
// Reading a Mach-O dynamic library for arm64 iOS: what it holds, and whether it is whole.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace device {

struct Segment {
    std::string name;
    std::uint64_t address; // relative to the image's preferred base
    std::uint64_t size;
    std::uint64_t fileOffset;
    std::uint64_t fileSize;
    std::uint32_t protection; // VM_PROT_READ 1, WRITE 2, EXECUTE 4
};

struct Section {
    std::string segment;
    std::string name;
    std::uint64_t address;
    std::uint64_t size;
};

/// A stretch of the file.
struct FileRange {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
};

struct MachoFile {
    std::vector<std::uint8_t> bytes;
    std::vector<Segment> segments;
    std::vector<Section> sections;
    std::vector<std::string> libraries; // by load ordinal, from 1
    FileRange chainedFixups;
    FileRange exportsTrie;
    FileRange codeSignature;

    std::span<const std::uint8_t> Bytes(FileRange range) const {
        return std::span(bytes).subspan(range.offset, range.size);
    }
    /// The section of that name; null when the image has none.
    const Section *FindSection(const std::string &name) const;
    /// Bytes of address space from the first segment to the end of the last.
    std::uint64_t AddressSpace() const;
};

/// Reads a file and checks that it is a whole, unencrypted arm64 dynamic library whose load commands are all known.
/// Throws Refusal otherwise.
MachoFile ReadMachoFile(const std::string &path);

/// The same for a file's bytes.
MachoFile ParseMachoFile(std::vector<std::uint8_t> content);

/// Compares every page of the file with the hash that its signature holds. Throws Refusal naming the first wrong page.
void CheckPageHashes(const MachoFile &file);

} // namespace device
