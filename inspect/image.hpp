#pragma once
// An executable or a library as it would lie in memory.

#include "inspect/chained_fixups.hpp"
#include "inspect/slice.hpp"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace inspect {

/// Where a pointer leads: to an address of the same image, or to a symbol of another one. Neither for nil.
struct Pointer {
    std::uint64_t address = 0;
    std::string_view symbol;

    explicit operator bool() const {
        return address != 0 || !symbol.empty();
    }
};

struct Range {
    std::uint64_t address = 0;
    std::uint64_t size = 0;
};

/// An image keeps views of the bytes, which must outlive it. What lies outside of them throws BadInput.
class Image {
  public:
    /// Throws BadInput when the bytes are no image that can be judged.
    Image(std::string name, llvm::StringRef bytes);

    const std::string &name() const {
        return name_;
    }
    /// The names of the libraries that are loaded with it, as it writes them.
    const std::vector<std::string> &libraries() const {
        return libraries_;
    }

    /// The sections of the name, in whatever segment they stand.
    std::vector<Range> Sections(std::string_view name) const;
    std::uint32_t WordAt(std::uint64_t address) const;
    /// The pointer at the address as the loader would leave it.
    Pointer PointerAt(std::uint64_t address) const;
    /// The text at the address, up to its zero.
    std::string_view TextAt(std::uint64_t address) const;
    /// How many bytes of the file lie from the address to the end of its segment.
    std::uint64_t RoomAt(std::uint64_t address) const;

    [[noreturn]] void Complain(const std::string &what) const;

  private:
    struct Segment {
        std::uint64_t address;
        llvm::StringRef bytes;
    };

    llvm::StringRef BytesAt(std::uint64_t address, std::uint64_t size) const;
    void ReadCommands();
    void ReadBindings();
    const Segment &SegmentAt(std::uint64_t address, std::uint64_t size) const;

    std::string name_;
    llvm::StringRef bytes_;
    std::unique_ptr<llvm::object::MachOObjectFile> file_;
    std::vector<Segment> segments_; // all of them, in their order
    std::uint64_t base_ = 0;
    std::vector<std::string> libraries_;
    /// Of images whose pointers say themselves what they become.
    std::optional<ChainedFixups> chained_;
    /// Of others: the pointers into other images. What else they hold are addresses already.
    std::unordered_map<std::uint64_t, Pointer> bound_;
};

} // namespace inspect
