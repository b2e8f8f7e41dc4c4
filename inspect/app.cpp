#include "inspect/app.hpp"

#include "inspect/bad_input.hpp"
#include "inspect/info_plist.hpp"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace inspect {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPayload = "Payload/";
constexpr std::string_view kAppEnding = ".app/";

/// The last part of a path.
std::string_view Leaf(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

/// Adds the image in the file; those whose bytes are none are refused.
void AddImage(App &app, const std::string &name, std::string bytes) {
    app.files.push_back(std::move(bytes));
    app.images.emplace_back(name, app.files.back());
}

/// Finds the images that the first does not load, directly or through others, and puts them behind those that are
/// loaded with it. Libraries are told by their last names, which are theirs alone within an app.
void FindLate(App &app) {
    std::set<std::string_view> reached{Leaf(app.images.front().name())};
    for (bool more = true; more;) {
        more = false;
        for (const Image &image : app.images) {
            if (!reached.contains(Leaf(image.name()))) {
                continue;
            }
            for (const std::string &library : image.libraries()) {
                more |= reached.insert(Leaf(library)).second;
            }
        }
    }
    for (const Image &image : app.images) {
        if (!reached.contains(Leaf(image.name()))) {
            app.late.insert(image.name());
        }
    }
    std::ranges::sort(std::next(app.images.begin()), app.images.end(), {}, [&](const Image &image) {
        return std::pair(app.late.contains(image.name()), std::string_view(image.name()));
    });
}

/// The app in the folder, below the prefix.
App FromFolder(const std::string &name, Folder &folder, const std::string &prefix) {
    App app{.name = name, .identifier = {}, .files = {}, .images = {}, .late = {}, .leftAside = {}};
    const std::optional<std::string> plist = folder.Read(prefix + "Info.plist");
    if (!plist) {
        throw BadInput(name + ": no Info.plist, so no app");
    }
    const BundleInfo info = ReadInfoPlist(name + ": Info.plist", *plist);
    app.identifier = info.identifier;
    std::optional<std::string> executable = folder.Read(prefix + info.executable);
    if (!executable) {
        throw BadInput(name + ": the executable " + info.executable + " is missing");
    }
    AddImage(app, info.executable, std::move(*executable));
    std::vector<std::string> names = folder.Names();
    std::ranges::sort(names);
    for (const std::string &file : names) {
        if (!file.starts_with(prefix + "Frameworks/") || !LooksLikeMachO(folder.ReadHead(file).value_or(""))) {
            continue;
        }
        std::string bytes = folder.Read(file).value_or("");
        try {
            AddImage(app, file.substr(prefix.size()), std::move(bytes));
        } catch (const BadInput &bad) {
            app.leftAside.emplace_back(bad.what());
        }
    }
    FindLate(app);
    return app;
}

App FromZip(const std::string &name, const std::string &bytes) {
    const std::unique_ptr<Folder> folder = FolderInZip(name, bytes);
    for (const std::string &file : folder->Names()) {
        const std::size_t end = file.find(kAppEnding, kPayload.size());
        if (file.starts_with(kPayload) && end != std::string::npos &&
            file.find('/', kPayload.size()) == end + kAppEnding.size() - 1) {
            return FromFolder(name, *folder, file.substr(0, end + kAppEnding.size()));
        }
    }
    throw BadInput(name + ": no app in its folder Payload");
}

} // namespace

App OpenAppFile(const std::string &name, std::string bytes) {
    if (bytes.starts_with("PK")) {
        return FromZip(name, bytes);
    }
    App app{.name = name, .identifier = {}, .files = {}, .images = {}, .late = {}, .leftAside = {}};
    AddImage(app, std::string(Leaf(name)), std::move(bytes));
    return app;
}

App OpenApp(const std::string &path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        throw BadInput(path + ": no such file or folder");
    }
    if (fs::is_directory(status)) {
        return FromFolder(path, *FolderOnDisk(path), "");
    }
    if (!fs::is_regular_file(status)) {
        throw BadInput(path + ": neither a file nor a folder");
    }
    return OpenAppFile(path, ReadFile(path, std::string::npos));
}

} // namespace inspect
