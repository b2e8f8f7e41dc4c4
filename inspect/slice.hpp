#pragma once
// The part of a file that a phone would load.

#include <llvm/Object/MachO.h>

#include <memory>
#include <string>

namespace inspect {

/// The 64-bit ARM Mach-O in the bytes, which may be a universal file. Throws BadInput, with the name, for anything
/// else: other processors, bitcode, stubs, what a store has encrypted, what is cut off or makes no sense.
std::unique_ptr<llvm::object::MachOObjectFile> OpenSlice(const std::string &name, llvm::StringRef bytes);

/// Whether the bytes begin as a Mach-O or a universal file does.
bool LooksLikeMachO(llvm::StringRef bytes);

} // namespace inspect
