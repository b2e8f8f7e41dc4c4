#pragma once
// A folder of files, on a disk or in a zip file.

#include <llvm/Support/MemoryBuffer.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace inspect {

class Folder {
  public:
    virtual ~Folder() = default;

    /// The file by its name within the folder; empty when there is none. Throws BadInput for one that cannot be read.
    std::optional<std::string> Read(const std::string &name) {
        return ReadUpTo(name, std::string::npos);
    }
    /// The same for the bytes at its beginning that tell what it is: an app holds far more than executables.
    std::optional<std::string> ReadHead(const std::string &name) {
        return ReadUpTo(name, 64);
    }
    /// The names of all files.
    virtual std::vector<std::string> Names() = 0;

  private:
    /// The file up to that many bytes.
    virtual std::optional<std::string> ReadUpTo(const std::string &name, std::size_t most) = 0;
};

/// The file at the path up to that many bytes. Throws BadInput for one that cannot be read, or is larger than any app.
std::string ReadFile(const std::string &path, std::size_t most);

/// The folder at the path. Links are not followed.
std::unique_ptr<Folder> FolderOnDisk(const std::string &path);

/// The content of the zip file whose bytes these are, which must outlive it. Throws BadInput.
std::unique_ptr<Folder> FolderInZip(const std::string &name, llvm::StringRef bytes);

} // namespace inspect
