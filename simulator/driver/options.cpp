#include "driver/options.hpp"

#include "driver/leak_check.hpp"
#include "runtime/variants.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <vector>

namespace sim::driver {
namespace {

struct Option {
    const char *name;
    std::string Options::*value;
};

constexpr Option kOptions[] = {
    {"--host", &Options::host},         {"--bundle", &Options::bundle}, {"--library", &Options::library},
    {"--words", &Options::words},       {"--state", &Options::state},   {"--pictures", &Options::pictures},
    {"--variants", &Options::variants}, {"--rules", &Options::rules},   {"--continue", &Options::progress},
};

constexpr const char *kLenient = "--lenient";

std::string KnownVariants() {
    std::string known;
    for (const VariantRow &row : Variants()) {
        known += std::string(known.empty() ? "" : ", ") + row.name;
    }
    return known;
}

} // namespace

const hosts::HostEntry &FindHost(const std::string &name) {
    std::string known;
    for (const hosts::HostEntry &entry : hosts::Hosts()) {
        if (name == entry.name) {
            return entry;
        }
        known += std::string(known.empty() ? "" : ", ") + entry.name;
    }
    throw UsageError((name.empty() ? "--host is missing" : "unknown host " + name) + "; hosts are " + known);
}

Options ReadOptions(int count, char **words) {
    Options options;
    std::vector<std::string> plain;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        if (word == kLenient) {
            options.isLenient = true;
            continue;
        }
        const auto *const option = std::ranges::find(kOptions, word, &Option::name);
        if (option == std::end(kOptions)) {
            if (word.starts_with("--")) {
                throw UsageError("unknown option " + word);
            }
            plain.push_back(word);
        } else if (++i < count) {
            options.*(option->value) = words[i];
        } else {
            throw UsageError(word + " wants a value");
        }
    }
    options.listsApi = plain == std::vector<std::string>{"api"};
    options.listsVariants = plain == std::vector<std::string>{"variants"};
    if (options.listsApi || options.listsVariants) {
        return options;
    }
    if (plain.size() != 2 || plain[0] != "run") {
        throw UsageError("expected 'run FILE', 'api' or 'variants'");
    }
    options.script = plain[1];
    FindHost(options.host);
    if (options.library.empty()) {
        throw UsageError("--library is missing: the file to inject, or none");
    }
    if (!ChooseVariants(options.variants)) {
        throw UsageError("unknown variant among " + options.variants + "; variants are " + KnownVariants());
    }
    return options;
}

Progress ReadProgress(const Options &options) {
    Progress progress{.ownsState = options.state.empty()};
    int owns = 0;
    if (!options.progress.empty()) {
        if (std::sscanf(options.progress.c_str(), "%zu:%d:%d:%d", &progress.line, &progress.expectations,
                        &progress.failures, &owns) != 4) {
            throw UsageError("bad progress " + options.progress);
        }
        progress.ownsState = owns != 0;
    }
    return progress;
}

std::string Usage() {
    return "usage: corvel-sim --host NAME --library PATH|none [--words FILE] [--bundle ID|nil] [--state DIR] "
           "[--pictures DIR] [--variants NAME,…] [--rules FILE] [--lenient] run FILE|-\n"
           "       corvel-sim api\n"
           "       corvel-sim variants\n";
}

void Relaunch(Options options, const Progress &progress) {
    options.progress = std::to_string(progress.line) + ":" + std::to_string(progress.expectations) + ":" +
                       std::to_string(progress.failures) + ":" + (progress.ownsState ? "1" : "0");
    std::vector<std::string> words{"corvel-sim"};
    for (const Option &option : kOptions) {
        if (const std::string &value = options.*(option.value); !value.empty()) {
            words.insert(words.end(), {option.name, value});
        }
    }
    if (options.isLenient) {
        words.emplace_back(kLenient);
    }
    words.insert(words.end(), {"run", options.script});
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string &word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    std::fflush(nullptr);
    if (HasLeaked()) {
        _exit(kLeakedStatus);
    }
    // Under an emulator the program cannot be started by itself; the environment then names the command that does.
    const char *command = std::getenv("CORVEL_SIM_COMMAND");
    execv(command != nullptr ? command : "/proc/self/exe", pointers.data());
}

} // namespace sim::driver
