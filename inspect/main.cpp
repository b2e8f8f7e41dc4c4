// corvel-inspect: whether an app still has what the library looks for.

#include "inspect/bad_input.hpp"
#include "inspect/report.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int kWorks = 0;
constexpr int kNoneWorks = 1;
constexpr int kBadInput = 2;

/// Says what is found of one path; the status that it asks for. Entries are gathered for programs when they are wanted.
int Inspect(const std::string &path, nlohmann::json *entries) {
    try {
        const inspect::Report report = inspect::MakeReport(inspect::OpenApp(path));
        if (entries != nullptr) {
            entries->push_back(inspect::AsJson(report));
        } else {
            std::fputs(inspect::AsText(report).c_str(), stdout);
        }
        return report.works() ? kWorks : kNoneWorks;
    } catch (const inspect::BadInput &bad) {
        std::fprintf(stderr, "corvel-inspect: %s\n", bad.what());
    } catch (const std::bad_alloc &) {
        std::fprintf(stderr, "corvel-inspect: %s: needs more memory than there is\n", path.c_str());
    }
    return kBadInput;
}

} // namespace

int main(int count, char **words) {
    CLI::App options{"Says which hooks and ways to send of Corvel an app still has the classes and methods for.\n"
                     "Status: 0 when the app's host can send, 1 when it cannot, 2 for input that cannot be judged."};
    std::vector<std::string> paths;
    bool json = false;
    options.add_option("PATH", paths, "an app's executable, its .app folder or its .ipa")->required();
    options.add_flag("--json", json, "one JSON array, an entry for each app, for programs");
    try {
        options.parse(count, words);
    } catch (const CLI::ParseError &error) {
        return options.exit(error) == 0 ? kWorks : kBadInput;
    }
    nlohmann::json entries = nlohmann::json::array();
    int status = kWorks;
    for (const std::string &path : paths) {
        status = std::max(status, Inspect(path, json ? &entries : nullptr));
    }
    if (json) {
        std::puts(entries.dump(2).c_str());
    }
    return status;
}
