#include "window/options.hpp"

#include "script/words.hpp"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>

namespace sim::window {
namespace {

using driver::UsageError;

constexpr double kLeastScale = 0.25;
constexpr double kMostScale = 4;

/// Where the phones of windows keep what lasts: below XDG_DATA_HOME, as desktop programs do.
std::filesystem::path DataDirectory() {
    const char *const data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data == '/') {
        return data;
    }
    const char *const home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') {
        throw UsageError("no home directory to keep the phone in; name one by --state");
    }
    return std::filesystem::path(home) / ".local/share";
}

void CheckState(const std::string &state) {
    std::error_code failure;
    std::filesystem::create_directories(state, failure);
    if (failure) {
        throw UsageError("cannot keep the phone in " + state + ": " + failure.message());
    }
}

/// Whoever names a file wants to know before the work is done that it cannot be written.
void CheckSave(const std::string &file) {
    const bool isNew = !std::filesystem::exists(file);
    if (!std::ofstream(file, std::ios::app)) {
        throw UsageError("cannot write " + file);
    }
    if (isNew) {
        std::filesystem::remove(file);
    }
}

/// NAME or WIDTHxHEIGHT, in the words of a script. Whether there is such a screen is the phone's to say.
std::string ScreenWords(const std::string &text) {
    static const std::regex size("([0-9.]+)x([0-9.]+)");
    return std::regex_replace(text, size, "$1 $2");
}

double ReadScale(const std::string &text) {
    const std::optional<double> scale = script::ParseNumber(Bare(text));
    if (!scale || !(*scale >= kLeastScale && *scale <= kMostScale)) {
        throw UsageError("--scale wants pixels a point, from 0.25 to 4, not " + text);
    }
    return *scale;
}

} // namespace

WindowOptions ReadOptions(int count, char **words) {
    WindowOptions options;
    std::vector<std::string> rest{words[0]};
    bool lacksValue = false;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        const auto value = [&]() -> std::string {
            if (++i == count) {
                throw UsageError(word + " wants a value");
            }
            return words[i];
        };
        if (word == "--first") {
            options.first = value();
        } else if (word == "--screen") {
            options.screen = ScreenWords(value());
        } else if (word == "--scale") {
            options.scale = ReadScale(value());
        } else if (word == "--save") {
            options.save = value();
        } else if (word == "--frames") {
            options.countsFrames = true;
        } else if (word == "--check-drawing") {
            options.checksDrawing = true;
        } else if (word == "--places") {
            options.tellsPlaces = true;
        } else if (!word.starts_with("--")) {
            throw UsageError("the window takes no '" + word + "'");
        } else {
            rest.push_back(word);
            if (++i < count) {
                rest.emplace_back(words[i]);
            } else {
                lacksValue = true;
            }
        }
    }
    // The simulator reads the rest as its own, for a run whose script the user makes up. What is cut short must not
    // take the run for its value.
    if (!lacksValue) {
        rest.insert(rest.end(), {"run", "-"});
    }
    std::vector<char *> pointers;
    pointers.reserve(rest.size());
    for (std::string &word : rest) {
        pointers.push_back(word.data());
    }
    options.phone = driver::ReadOptions(static_cast<int>(pointers.size()), pointers.data());
    if (options.phone.state.empty()) {
        options.phone.state = (DataDirectory() / "corvel-sim" / options.phone.host).string();
    }
    CheckState(options.phone.state);
    if (!options.save.empty()) {
        CheckSave(options.save);
    }
    return options;
}

} // namespace sim::window
