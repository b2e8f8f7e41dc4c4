#include "inspect/slice.hpp"

#include "inspect/bad_input.hpp"

#include <llvm/BinaryFormat/Magic.h>
#include <llvm/Object/MachOUniversal.h>

namespace inspect {
namespace {

using llvm::object::MachOObjectFile;
using llvm::object::MachOUniversalBinary;
namespace MachO = llvm::MachO;

template <class T> T Taken(const std::string &name, llvm::Expected<T> expected) {
    if (!expected) {
        throw BadInput(name + ": " + llvm::toString(expected.takeError()));
    }
    return std::move(*expected);
}

/// Whether the code authenticates its pointers, which has them laid out otherwise.
bool IsArm64e(std::uint32_t subtype) {
    return (subtype & ~MachO::CPU_SUBTYPE_MASK) == MachO::CPU_SUBTYPE_ARM64E;
}

/// The slice for 64-bit ARM; one that authenticates its pointers only when there is no other.
std::unique_ptr<MachOObjectFile> SliceOf(const std::string &name, llvm::MemoryBufferRef buffer) {
    const auto fat = Taken(name, MachOUniversalBinary::create(buffer));
    std::string others;
    std::unique_ptr<MachOObjectFile> best;
    for (const MachOUniversalBinary::ObjectForArch &slice : fat->objects()) {
        if (slice.getCPUType() != MachO::CPU_TYPE_ARM64) {
            others += (others.empty() ? "" : ", ") + slice.getArchFlagName();
            continue;
        }
        if (best == nullptr || !IsArm64e(slice.getCPUSubType())) {
            best = Taken(name, slice.getAsObjectFile());
        }
    }
    if (best == nullptr) {
        throw BadInput(name + ": no part for 64-bit ARM, only " + others);
    }
    return best;
}

/// Throws for what holds no code that could be looked into.
void Refuse(const std::string &name, const MachOObjectFile &file) {
    const MachO::mach_header_64 &header = file.getHeader64();
    if (IsArm64e(header.cpusubtype)) {
        throw BadInput(name + ": for processors with pointer authentication (arm64e) alone, as no app in the store is");
    }
    if (header.filetype == MachO::MH_DYLIB_STUB) {
        throw BadInput(name + ": a stub to link against, which holds no classes");
    }
    if (header.filetype != MachO::MH_EXECUTE && header.filetype != MachO::MH_DYLIB &&
        header.filetype != MachO::MH_BUNDLE) {
        throw BadInput(name + ": neither an executable nor a library");
    }
    bool bitcode = false;
    bool code = false;
    for (const auto &command : file.load_commands()) {
        if (command.C.cmd == MachO::LC_ENCRYPTION_INFO_64 && file.getEncryptionInfoCommand64(command).cryptid != 0) {
            throw BadInput(name + ": encrypted, as the store delivers it; the check needs a decrypted copy");
        }
        if (command.C.cmd == MachO::LC_SEGMENT_64) {
            const MachO::segment_command_64 segment = file.getSegment64LoadCommand(command);
            const llvm::StringRef segmentName(segment.segname, strnlen(segment.segname, sizeof(segment.segname)));
            bitcode |= segmentName == "__LLVM" && segment.filesize != 0;
        }
    }
    for (const auto &section : file.sections()) {
        code |= section.isText() && section.getSize() != 0;
    }
    if (bitcode && !code) {
        throw BadInput(name + ": bitcode in place of machine code");
    }
}

} // namespace

bool LooksLikeMachO(llvm::StringRef bytes) {
    switch (llvm::identify_magic(bytes)) {
    case llvm::file_magic::macho_executable:
    case llvm::file_magic::macho_dynamically_linked_shared_lib:
    case llvm::file_magic::macho_bundle:
    case llvm::file_magic::macho_universal_binary:
        return true;
    default:
        return false;
    }
}

std::unique_ptr<MachOObjectFile> OpenSlice(const std::string &name, llvm::StringRef bytes) {
    const llvm::MemoryBufferRef buffer(bytes, name);
    std::unique_ptr<MachOObjectFile> file;
    if (bytes.starts_with("\xca\xfe\xba\xbe") || bytes.starts_with("\xca\xfe\xba\xbf")) {
        file = SliceOf(name, buffer);
    } else if (bytes.starts_with("\xcf\xfa\xed\xfe")) {
        file = Taken(name, MachOObjectFile::create(buffer, true, true));
    } else if (bytes.starts_with("\xce\xfa\xed\xfe") || bytes.starts_with("\xfe\xed\xfa")) {
        throw BadInput(name + ": for a 32-bit or another byte order's processor, not for 64-bit ARM");
    } else if (bytes.starts_with("BC\xc0\xde") || bytes.starts_with("\xde\xc0\x17\x0b")) {
        throw BadInput(name + ": bitcode in place of machine code");
    } else if (bytes.starts_with("dyld_v1")) {
        throw BadInput(name + ": the system's shared cache, not an app");
    } else {
        throw BadInput(name + ": neither a Mach-O executable nor an .ipa");
    }
    if (file->getHeader().cputype != MachO::CPU_TYPE_ARM64) {
        throw BadInput(name + ": for " + file->getArchTriple().getArchName().str() + ", not for 64-bit ARM");
    }
    Refuse(name, *file);
    return file;
}

} // namespace inspect
