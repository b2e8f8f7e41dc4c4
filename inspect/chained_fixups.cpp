#include "inspect/chained_fixups.hpp"

#include "inspect/bad_input.hpp"

#include <llvm/BinaryFormat/MachO.h>
#include <llvm/Support/Endian.h>

namespace inspect {
namespace {

namespace MachO = llvm::MachO;

constexpr std::uint64_t kBind = std::uint64_t{1} << 63;
constexpr std::uint64_t kOrdinalBits = 0xFFFFFF;
constexpr std::uint64_t kTargetBits = 0xFFFFFFFFF;

} // namespace

ChainedFixups::ChainedFixups(std::string name, llvm::StringRef data) : name_(std::move(name)), data_(data) {
    const auto starts = At<std::uint32_t>(offsetof(MachO::dyld_chained_fixups_header, starts_offset));
    imports_ = At<std::uint32_t>(offsetof(MachO::dyld_chained_fixups_header, imports_offset));
    symbols_ = At<std::uint32_t>(offsetof(MachO::dyld_chained_fixups_header, symbols_offset));
    importCount_ = At<std::uint32_t>(offsetof(MachO::dyld_chained_fixups_header, imports_count));
    switch (At<std::uint32_t>(offsetof(MachO::dyld_chained_fixups_header, imports_format))) {
    case MachO::DYLD_CHAINED_IMPORT:
        importSize_ = 4;
        break;
    case MachO::DYLD_CHAINED_IMPORT_ADDEND:
        importSize_ = 8;
        break;
    case MachO::DYLD_CHAINED_IMPORT_ADDEND64:
        importSize_ = 16;
        break;
    default:
        Complain();
    }
    if (At<std::uint32_t>(offsetof(MachO::dyld_chained_fixups_header, symbols_format)) != 0) {
        Complain(); // compressed names, which no linker writes
    }
    const auto segments = At<std::uint32_t>(starts);
    if (segments > data_.size() / 4) {
        Complain();
    }
    for (std::uint32_t i = 0; i < segments; ++i) {
        const auto offset = At<std::uint32_t>(std::uint64_t{starts} + 4 + std::uint64_t{4} * i);
        if (offset != 0) {
            formats_[i] = At<std::uint16_t>(std::uint64_t{starts} + offset +
                                            offsetof(MachO::dyld_chained_starts_in_segment, pointer_format));
        }
    }
}

void ChainedFixups::Complain() const {
    throw BadInput(name_ + ": what the loader is told of pointers makes no sense");
}

template <class Number> Number ChainedFixups::At(std::uint64_t offset) const {
    if (offset > data_.size() || data_.size() - offset < sizeof(Number)) {
        Complain();
    }
    return llvm::support::endian::read<Number, llvm::endianness::little>(data_.data() + offset);
}

std::string_view ChainedFixups::Import(std::uint64_t ordinal) const {
    if (ordinal >= importCount_) {
        Complain();
    }
    const std::uint64_t at = imports_ + ordinal * importSize_;
    const std::uint64_t name = importSize_ == 16 ? At<std::uint64_t>(at) >> 32 : At<std::uint32_t>(at) >> 9;
    if (symbols_ + name >= data_.size()) {
        Complain();
    }
    const llvm::StringRef rest = data_.substr(symbols_ + name);
    const std::size_t end = rest.find('\0');
    if (end == llvm::StringRef::npos) {
        Complain();
    }
    return std::string_view(rest.data(), rest.size()).substr(0, end);
}

std::optional<ChainedFixups::Target> ChainedFixups::Decode(std::uint64_t raw, std::size_t segment) const {
    const auto format = formats_.find(segment);
    if (format == formats_.end() || raw == 0) {
        return std::nullopt;
    }
    if (format->second != MachO::DYLD_CHAINED_PTR_64 && format->second != MachO::DYLD_CHAINED_PTR_64_OFFSET) {
        throw BadInput(name_ + ": its pointers have the format " + std::to_string(format->second) +
                       ", which no app for iOS 15 has");
    }
    if ((raw & kBind) != 0) {
        return Target{.symbol = Import(raw & kOrdinalBits)};
    }
    return Target{
        .address = raw & kTargetBits, .fromBase = format->second == MachO::DYLD_CHAINED_PTR_64_OFFSET, .symbol = {}};
}

} // namespace inspect
