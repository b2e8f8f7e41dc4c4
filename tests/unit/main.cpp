// The unit tests' main: a phone without a screen, its state in a directory that goes with the run. With --file=NAME it
// runs the tests of that source file only.

#include "render/characters.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/runtime.hpp"
#include "runtime/user_defaults.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

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

/// The filter for the tests of one source file; empty when there are none.
std::string FilterFor(std::string_view file) {
    const testing::UnitTest &all = *testing::UnitTest::GetInstance();
    std::string filter;
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite &suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            const testing::TestInfo &test = *suite.GetTestInfo(j);
            if (std::filesystem::path(test.file()).filename() == file) {
                filter += std::string(suite.name()) + '.' + test.name() + ':';
            }
        }
    }
    return filter;
}

} // namespace

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    constexpr std::string_view kFile = "--file=";
    if (argc == 2 && std::string_view(argv[1]).starts_with(kFile)) {
        const std::string filter = FilterFor(std::string_view(argv[1]).substr(kFile.size()));
        if (filter.empty()) {
            std::fprintf(stderr, "no test stands in %s\n", argv[1] + kFile.size());
            return 1;
        }
        GTEST_FLAG_SET(filter, filter);
    }
    if (!MakeStateDirectory()) {
        return 1;
    }
    sim::SetStateDirectory(StateDirectory().string());
    const sim::AutoreleasePool pool;
    sim::InstallRuntime();
    sim::InstallComposedCharacters();
    return RUN_ALL_TESTS();
}
