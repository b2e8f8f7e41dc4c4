#include "inspect/image.hpp"

#include "inspect/bad_input.hpp"

#include <llvm/Support/Endian.h>
#include <llvm/Support/Format.h>

namespace inspect {
namespace {

namespace MachO = llvm::MachO;
using llvm::object::MachOObjectFile;

/// Only these bits of a pointer are an address; the others are a tag.
constexpr std::uint64_t kAddressBits = 0x00FFFFFFFFFFFFFF;

std::string_view View(llvm::StringRef text) {
    return {text.data(), text.size()};
}

} // namespace

Image::Image(std::string name, llvm::StringRef bytes)
    : name_(std::move(name)), bytes_(bytes), file_(OpenSlice(name_, bytes)) {
    ReadCommands();
    if (!chained_) {
        ReadBindings();
    }
}

void Image::Complain(const std::string &what) const {
    throw BadInput(name_ + ": " + what);
}

void Image::ReadCommands() {
    for (const auto &command : file_->load_commands()) {
        switch (command.C.cmd) {
        case MachO::LC_SEGMENT_64: {
            const MachO::segment_command_64 segment = file_->getSegment64LoadCommand(command);
            const llvm::StringRef bytes = file_->getData().substr(segment.fileoff, segment.filesize);
            segments_.push_back({segment.vmaddr, bytes.substr(0, segment.vmsize)});
            // The image begins where the file does.
            base_ = segment.fileoff == 0 && segment.filesize != 0 ? segment.vmaddr : base_;
            break;
        }
        case MachO::LC_LOAD_DYLIB:
        case MachO::LC_LOAD_WEAK_DYLIB:
        case MachO::LC_REEXPORT_DYLIB:
        case MachO::LC_LOAD_UPWARD_DYLIB: {
            // LLVM has seen to it that the name lies in the command and ends there.
            const MachO::dylib_command library = file_->getDylibIDLoadCommand(command);
            libraries_.emplace_back(command.Ptr + library.dylib.name);
            break;
        }
        case MachO::LC_DYLD_CHAINED_FIXUPS: {
            const MachO::linkedit_data_command data = file_->getLinkeditDataLoadCommand(command);
            chained_.emplace(name_, file_->getData().substr(data.dataoff, data.datasize));
            break;
        }
        default:
            break;
        }
    }
}

void Image::ReadBindings() {
    // No file has more pointers than bytes; opcodes that mean harm can ask for any number.
    std::size_t left = bytes_.size();
    using Table = llvm::iterator_range<llvm::object::bind_iterator> (MachOObjectFile::*)(llvm::Error &);
    for (const Table table :
         {static_cast<Table>(&MachOObjectFile::bindTable), static_cast<Table>(&MachOObjectFile::weakBindTable)}) {
        llvm::Error error = llvm::Error::success();
        for (const auto &entry : (file_.get()->*table)(error)) {
            if (left-- == 0) {
                llvm::consumeError(std::move(error));
                Complain("more pointers to set at load than the file has bytes");
            }
            bound_[entry.address()] = {.address = 0, .symbol = View(entry.symbolName())};
        }
        if (error) {
            Complain(llvm::toString(std::move(error)));
        }
    }
}

const Image::Segment &Image::SegmentAt(std::uint64_t address, std::uint64_t size) const {
    for (const Segment &segment : segments_) {
        const std::uint64_t offset = address - segment.address;
        if (address >= segment.address && offset < segment.bytes.size() && size <= segment.bytes.size() - offset) {
            return segment;
        }
    }
    Complain("a pointer leads outside of the file, to 0x" + llvm::utohexstr(address));
}

llvm::StringRef Image::BytesAt(std::uint64_t address, std::uint64_t size) const {
    const Segment &segment = SegmentAt(address, size);
    return segment.bytes.substr(address - segment.address, size);
}

std::uint64_t Image::RoomAt(std::uint64_t address) const {
    for (const Segment &segment : segments_) {
        if (address >= segment.address && address - segment.address < segment.bytes.size()) {
            return segment.bytes.size() - (address - segment.address);
        }
    }
    return 0;
}

std::vector<Range> Image::Sections(std::string_view name) const {
    std::vector<Range> found;
    for (const auto &section : file_->sections()) {
        const MachO::section_64 raw = file_->getSection64(section.getRawDataRefImpl());
        if (name == std::string_view(raw.sectname, strnlen(raw.sectname, sizeof(raw.sectname)))) {
            found.push_back({.address = raw.addr, .size = raw.size});
        }
    }
    return found;
}

std::uint32_t Image::WordAt(std::uint64_t address) const {
    return llvm::support::endian::read32le(BytesAt(address, 4).data());
}

Pointer Image::PointerAt(std::uint64_t address) const {
    const Segment &segment = SegmentAt(address, 8);
    const std::uint64_t raw = llvm::support::endian::read64le(segment.bytes.data() + (address - segment.address));
    if (!chained_) {
        const auto found = bound_.find(address);
        return found != bound_.end() ? found->second : Pointer{.address = raw & kAddressBits, .symbol = {}};
    }
    const auto target = chained_->Decode(raw, static_cast<std::size_t>(&segment - segments_.data()));
    if (!target) {
        return {};
    }
    return {.address = target->address + (target->fromBase ? base_ : 0), .symbol = target->symbol};
}

std::string_view Image::TextAt(std::uint64_t address) const {
    const llvm::StringRef rest = BytesAt(address, RoomAt(address));
    const std::size_t end = rest.find('\0');
    if (rest.empty() || end == llvm::StringRef::npos) {
        Complain("a name does not end within the file");
    }
    return View(rest.take_front(end));
}

} // namespace inspect
