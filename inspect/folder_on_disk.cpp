#include "inspect/bad_input.hpp"
#include "inspect/folder.hpp"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

namespace inspect {
namespace {

namespace fs = std::filesystem;

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
        std::ifstream file(path, std::ios::binary);
        std::string bytes;
        while (file && bytes.size() < most) {
            std::array<char, 1 << 16> part;
            file.read(part.data(), static_cast<std::streamsize>(std::min(part.size(), most - bytes.size())));
            bytes.append(part.data(), static_cast<std::size_t>(file.gcount()));
        }
        if (!file.is_open() || file.bad()) {
            throw BadInput(path.string() + ": cannot be read");
        }
        return bytes;
    }

    fs::path path_;
};

} // namespace

std::unique_ptr<Folder> FolderOnDisk(const std::string &path) {
    return std::make_unique<DiskFolder>(path);
}

} // namespace inspect
