// The unit tests' main: a phone without a screen, its state in a directory that goes with the run.

#include "render/characters.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/runtime.hpp"
#include "runtime/user_defaults.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

/// Never destroyed: the directory is removed while the process ends.
std::filesystem::path &StateDirectory() {
    static auto &directory = *new std::filesystem::path;
    return directory;
}

bool MakeStateDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "corvel-unit-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        std::perror(name.c_str());
        return false;
    }
    StateDirectory() = name;
    // Before the runtime is installed, so that this comes after its own last write.
    std::atexit([] {
        std::error_code ignored;
        std::filesystem::remove_all(StateDirectory(), ignored);
    });
    return true;
}

} // namespace

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!MakeStateDirectory()) {
        return 1;
    }
    sim::SetStateDirectory(StateDirectory().string());
    const sim::AutoreleasePool pool;
    sim::InstallRuntime();
    sim::InstallComposedCharacters();
    return RUN_ALL_TESTS();
}
