#pragma once
// Pointers as newer linkers leave them: each holds what it is to become, beside the way to the next one.
// https://github.com/apple-oss-distributions/dyld/blob/main/include/mach-o/fixup-chains.h

#include <llvm/ADT/StringRef.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>

namespace inspect {

/// What the loader is told of an image's pointers. Each pointer says by itself what it becomes, so no chain is
/// followed.
class ChainedFixups {
  public:
    /// Of the data of that load command, which must outlive it. Throws BadInput, with the name, for data that makes no
    /// sense.
    ChainedFixups(std::string name, llvm::StringRef data);

    /// Where a pointer leads that holds `raw`, in the segment of that number: to an address (counted from the image's
    /// beginning when `fromBase`), or to a symbol. Empty when the loader leaves the segment alone.
    struct Target {
        std::uint64_t address = 0;
        bool fromBase = false;
        std::string_view symbol;
    };
    std::optional<Target> Decode(std::uint64_t raw, std::size_t segment) const;

  private:
    [[noreturn]] void Complain() const;
    template <class Number> Number At(std::uint64_t offset) const;
    std::string_view Import(std::uint64_t ordinal) const;

    std::string name_;
    llvm::StringRef data_;
    std::uint32_t imports_ = 0;
    std::uint32_t importCount_ = 0;
    std::uint32_t importSize_ = 0;
    std::uint32_t symbols_ = 0;
    std::map<std::size_t, std::uint16_t> formats_; // by the number of the segment
};

} // namespace inspect
