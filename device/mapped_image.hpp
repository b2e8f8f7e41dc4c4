#pragma once
// An image in memory: its segments at their places, its fixups applied, its protections set.

#include "macho_file.hpp"

#include <functional>
#include <memory>
#include <string>

namespace device {

/// Finds the address of an imported symbol (with its leading underscore); null when there is none.
using ImportResolver = std::function<void *(const std::string &symbol)>;

/// An image mapped into this process, for as long as the object lives.
class MappedImage {
  public:
    /// Maps the segments (still writable) and applies the chained fixups. Throws Refusal naming an import that the
    /// resolver does not know, or a fixup of an unknown kind.
    MappedImage(const MachoFile &file, const ImportResolver &resolver);

    /// Gives every segment the protection that the file asks for. Nothing may run before.
    void Protect() const;

    const MachoFile &file() const {
        return file_;
    }
    /// Where offset 0 of the image (its header) lies.
    std::uint8_t *base() const {
        return base_.get();
    }
    /// The section's bytes in memory, as values of T; empty when the image has no such section.
    template <class T> std::span<T> SectionOf(const std::string &name) const {
        const Section *section = file_.FindSection(name);
        return section == nullptr
                   ? std::span<T>{}
                   : std::span(reinterpret_cast<T *>(base() + section->address), section->size / sizeof(T));
    }
    /// The address of an exported symbol (with its leading underscore); null when the image exports none of that name.
    void *FindExport(const std::string &symbol) const;

  private:
    struct Unmap {
        std::uint64_t size;
        void operator()(std::uint8_t *memory) const;
    };

    const MachoFile &file_;
    std::unique_ptr<std::uint8_t, Unmap> base_;
};

} // namespace device
