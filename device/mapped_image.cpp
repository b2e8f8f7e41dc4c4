#include "mapped_image.hpp"

#include "byte_reader.hpp"
#include "chained_fixups.hpp"

#include <sys/mman.h>

namespace device {

void MappedImage::Unmap::operator()(std::uint8_t *memory) const {
    munmap(memory, size);
}

MappedImage::MappedImage(const MachoFile &file, const ImportResolver &resolver) : file_(file) {
    void *memory = mmap(nullptr, file.AddressSpace(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        throw Refusal("no address space");
    }
    base_ = std::unique_ptr<std::uint8_t, Unmap>(static_cast<std::uint8_t *>(memory), Unmap{file.AddressSpace()});
    for (const Segment &segment : file.segments) {
        std::memcpy(base() + segment.address, file.bytes.data() + segment.fileOffset, segment.fileSize);
    }
    ApplyChainedFixups(file, base(), resolver);
}

void MappedImage::Protect() const {
    for (const Segment &segment : file_.segments) {
        // VM_PROT_* and PROT_* number read, write and execute alike.
        if (mprotect(base() + segment.address, segment.size, static_cast<int>(segment.protection)) != 0) {
            throw Refusal("cannot protect segment " + segment.name);
        }
    }
    __builtin___clear_cache(reinterpret_cast<char *>(base()), reinterpret_cast<char *>(base() + file_.AddressSpace()));
}

void *MappedImage::FindExport(const std::string &symbol) const {
    const auto trie = file_.Bytes(file_.exportsTrie);
    std::uint64_t node = 0;
    std::string_view rest = symbol;
    for (;;) {
        std::uint64_t at = node;
        const std::uint64_t terminalSize = ReadUleb(trie, at, "exports trie");
        if (rest.empty()) {
            if (terminalSize == 0) {
                return nullptr;
            }
            const std::uint64_t flags = ReadUleb(trie, at, "exports trie");
            if (flags != 0) {
                throw Refusal("export " + symbol + " of an unknown kind");
            }
            const std::uint64_t offset = ReadUleb(trie, at, "exports trie");
            if (offset >= file_.AddressSpace()) {
                throw Refusal("export " + symbol + " outside the image");
            }
            return base() + offset;
        }
        at += terminalSize;
        const auto children = ReadAt<std::uint8_t>(trie, at++, "exports trie");
        bool descended = false;
        for (std::uint8_t child = 0; child < children && !descended; ++child) {
            const std::string label = StringAt(trie, at, "exports trie");
            if (label.empty()) {
                throw Refusal("exports trie with an empty edge"); // which might lead round in circles
            }
            at += label.size() + 1;
            const std::uint64_t next = ReadUleb(trie, at, "exports trie");
            if (rest.starts_with(label)) {
                rest.remove_prefix(label.size());
                node = next;
                descended = true;
            }
        }
        if (!descended) {
            return nullptr;
        }
    }
}

} // namespace device
