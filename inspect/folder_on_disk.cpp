#include "inspect/bad_input.hpp"
#include "inspect/folder.hpp"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace inspect {
namespace {

namespace fs = std::filesystem;

class DiskFolder final : public Folder {
  public:
    explicit DiskFolder(fs::path path) : path_(std::move(path)) {}

    std::optional<std::string> Read(const std::string &name) override {
        const fs::path path = path_ / name;
        std::error_code none;
        if (!fs::is_regular_file(fs::symlink_status(path, none))) {
            return std::nullopt;
        }
        std::ifstream file(path, std::ios::binary);
        std::string bytes{std::istreambuf_iterator<char>(file), {}};
        if (!file) {
            throw BadInput(path.string() + ": cannot be read");
        }
        return bytes;
    }

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
    fs::path path_;
};

} // namespace

std::unique_ptr<Folder> FolderOnDisk(const std::string &path) {
    return std::make_unique<DiskFolder>(path);
}

} // namespace inspect
