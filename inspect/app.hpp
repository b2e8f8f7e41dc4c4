#pragma once
// An app's images, from whatever it comes in.

#include "inspect/folder.hpp"
#include "inspect/image.hpp"

#include <list>
#include <set>

namespace inspect {

struct App {
    std::string name;
    /// The bundle's; empty for a bare executable.
    std::string identifier;
    /// What the images are views of; keeps its place when it grows.
    std::list<std::string> files;
    std::vector<Image> images;
    /// The names of images that are not loaded when the app starts.
    std::set<std::string> late;
    /// One line for each image that had to be left aside.
    std::vector<std::string> leftAside;
};

/// The app at the path: an executable or library, a folder with an Info.plist, or a zip file with such a folder in
/// `Payload`. Throws BadInput when it cannot be judged.
App OpenApp(const std::string &path);

/// The same for the bytes of a file.
App OpenAppFile(const std::string &name, std::string bytes);

} // namespace inspect
