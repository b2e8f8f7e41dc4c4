// The table of preferences in the user guide, held against the keys in the sources.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <string>

namespace {

struct Preference {
    std::string type;
    std::string fallback;
    friend bool operator==(const Preference &, const Preference &) = default;
    friend void PrintTo(const Preference &preference, std::ostream *out) {
        *out << preference.type << ", " << preference.fallback;
    }
};
using Preferences = std::map<std::string, Preference>;

std::ifstream OpenSource(const char *path) {
    return {std::filesystem::path(CORVEL_SOURCE_DIRECTORY) / path, std::ios::in};
}

std::string Lowered(std::string text) {
    for (char &letter : text) {
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
    return text;
}

/// What the comments above the keys say. A key whose comment has another form is listed without a type.
Preferences InTheSources() {
    static const std::regex kComment("^/// (Bool|Float|Integer|String), ([^:(]*[^:( ])( \\([^)]*\\))?: .*");
    static const std::regex kKey("^    return \"(Corvel\\..+)\"_ns;$");
    std::ifstream file = OpenSource("src/settings/preference_keys.hpp");
    Preferences found;
    Preference latest;
    std::smatch match;
    for (std::string line; std::getline(file, line);) {
        if (std::regex_match(line, match, kComment)) {
            latest = {Lowered(match[1]), match[2]};
        } else if (std::regex_match(line, match, kKey)) {
            found[match[1]] = latest;
        } else if (line == "}") {
            latest = {};
        }
    }
    return found;
}

Preferences InTheGuide() {
    static const std::regex kRow(R"(^\| `(Corvel\.[^`]+)` \| (\w+) \| ([^|]+) \| ([^|]+) \| ([^|]+) \|$)");
    std::ifstream file = OpenSource("docs/user-guide/preferences.md");
    Preferences found;
    std::smatch match;
    for (std::string line; std::getline(file, line);) {
        if (std::regex_match(line, match, kRow)) {
            EXPECT_EQ(found.count(match[1]), 0U) << match[1] << " stands there twice";
            found[match[1]] = {match[2], match[3]};
        }
    }
    return found;
}

TEST(PreferenceDocs, NameEveryKeyWithItsTypeAndDefault) {
    Preferences sources = InTheSources();
    ASSERT_GT(sources.size(), 20U);
    // One key for each slot is made from its number.
    sources["Corvel.slots.N"] = {"string", "empty"};
    EXPECT_EQ(InTheGuide(), sources);
}

} // namespace
