#include "driver/power.hpp"

#include "render/album.hpp"
#include "render/characters.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/bundle.hpp"
#include "runtime/runtime.hpp"
#include "runtime/user_defaults.hpp"
#include "uikit/pasteboard.hpp"
#include "uikit/uikit.hpp"

#include <cstdlib>
#include <filesystem>

namespace sim::driver {
namespace {

std::unique_ptr<hosts::Host> MakeHost(const Options &options) {
    const hosts::HostEntry &entry = FindHost(options.host);
    const std::string bundle = options.bundle.empty() ? entry.bundleIdentifier : options.bundle;
    SetBundleIdentifier(bundle == "nil" ? nullptr : bundle.c_str());
    return entry.make();
}

} // namespace

std::string MakeStateDirectory() {
    std::string path = (std::filesystem::temp_directory_path() / "corvel-sim-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) {
        throw UsageError("cannot make " + path);
    }
    return path;
}

void SwitchOn(Session &session) {
    Options &options = session.options;
    if (options.state.empty()) {
        options.state = MakeStateDirectory();
    }
    SetStateDirectory(options.state);
    InstallRuntime();
    InstallComposedCharacters();
    const AutoreleasePool pool;
    RegisterUIKit();
    OpenAlbum(options.state + "/album", !session.progress.ownsState);
    SetPasteboardFile(options.state + "/pasteboard");
    session.host = MakeHost(options);
}

} // namespace sim::driver
