#include "inspect/bad_input.hpp"
#include "inspect/folder.hpp"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

namespace inspect {
namespace {

namespace fs = std::filesystem;

/// No zip file of the plain format is larger.
constexpr std::uintmax_t kLargest = std::uintmax_t{1} << 32;

class DiskFolder final : public Folder {
  public:
    explicit DiskFolder(fs::path path) : path_(std::move(path)) {}

    std::vector<std::string> Names() override {
        std::vector<std::string> names;
        std::error_code error;
        for (fs::recursive_directory_iterator at(path_, error), end; !error && at != end; at.increment(error)) {
            std::error_code none;
            if (fs::is_regular_file(at->symlink_status(none))) {
                names.push_back(at->path().lexically_relative(path_).generic_string());
            }
        }
        if (error) {
            throw BadInput(path_.string() + ": " + error.message());
        }
        return names;
    }

  private:
    std::optional<std::string> ReadUpTo(const std::string &name, std::size_t most) override {
        const fs::path path = path_ / name;
        std::error_code none;
        if (!fs::is_regular_file(fs::symlink_status(path, none))) {
            return std::nullopt;
        }
        return ReadFile(path.string(), most);
    }

    fs::path path_;
};

} // namespace

std::string ReadFile(const std::string &path, std::size_t most) {
    std::error_code error;
    if (fs::file_size(path, error) > kLargest && !error) {
        throw BadInput(path + ": larger than any app");
    }
    std::ifstream file(path, std::ios::binary);
    std::string bytes;
    std::array<char, 1 << 16> part;
    while (file && bytes.size() < most) {
        file.read(part.data(), static_cast<std::streamsize>(std::min(part.size(), most - bytes.size())));
        bytes.append(part.data(), static_cast<std::size_t>(file.gcount()));
    }
    if (!file.is_open() || file.bad()) {
        throw BadInput(path + ": cannot be read");
    }
    return bytes;
}

std::unique_ptr<Folder> FolderOnDisk(const std::string &path) {
    return std::make_unique<DiskFolder>(path);
}

} // namespace inspect
