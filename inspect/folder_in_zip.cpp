#include "inspect/bad_input.hpp"
#include "inspect/folder.hpp"

#include <zip.h>

#include <algorithm>
#include <array>

namespace inspect {
namespace {

/// No executable is larger; a zip file that means harm may hold one that never ends.
constexpr std::size_t kLargest = std::size_t{1} << 30;

class ZipFolder final : public Folder {
  public:
    ZipFolder(std::string name, llvm::StringRef bytes) : name_(std::move(name)) {
        zip_error_t error;
        zip_error_init(&error);
        zip_source_t *const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
        zip_.reset(source != nullptr ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr);
        if (zip_ == nullptr) {
            zip_source_free(source);
            const std::string text = zip_error_strerror(&error);
            zip_error_fini(&error);
            throw BadInput(name_ + ": " + text);
        }
    }

    std::vector<std::string> Names() override {
        std::vector<std::string> names;
        const zip_int64_t count = zip_get_num_entries(zip_.get(), 0);
        for (zip_int64_t i = 0; i < count; ++i) {
            const char *const name = zip_get_name(zip_.get(), static_cast<zip_uint64_t>(i), 0);
            if (name != nullptr) {
                names.emplace_back(name);
            }
        }
        return names;
    }

  private:
    struct Closer {
        void operator()(zip_t *zip) const {
            zip_discard(zip);
        }
        void operator()(zip_file_t *file) const {
            zip_fclose(file);
        }
    };

    std::optional<std::string> ReadUpTo(const std::string &name, std::size_t most) override {
        const zip_int64_t index = zip_name_locate(zip_.get(), name.c_str(), 0);
        if (index < 0) {
            return std::nullopt;
        }
        const std::unique_ptr<zip_file_t, Closer> file(
            zip_fopen_index(zip_.get(), static_cast<zip_uint64_t>(index), 0));
        if (file == nullptr) {
            throw BadInput(name_ + ": " + name + ": " + zip_strerror(zip_.get()));
        }
        std::string bytes;
        std::array<char, 1 << 16> part;
        while (bytes.size() < most) {
            const zip_int64_t count = zip_fread(file.get(), part.data(), std::min(part.size(), most - bytes.size()));
            if (count < 0) {
                throw BadInput(name_ + ": " + name + ": " + zip_file_strerror(file.get()));
            }
            if (count == 0) {
                break;
            }
            read_ += static_cast<std::size_t>(count);
            if (read_ > kLargest) {
                throw BadInput(name_ + ": holds more than an app's executables ever do");
            }
            bytes.append(part.data(), static_cast<std::size_t>(count));
        }
        return bytes;
    }

    std::string name_;
    std::unique_ptr<zip_t, Closer> zip_;
    std::size_t read_ = 0; // of all files together
};

} // namespace

std::unique_ptr<Folder> FolderInZip(const std::string &name, llvm::StringRef bytes) {
    return std::make_unique<ZipFolder>(name, bytes);
}

} // namespace inspect
