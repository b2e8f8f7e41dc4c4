#include "driver/options.hpp"

#include "driver/leak_check.hpp"
#include "hosts/host.hpp"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <vector>

namespace sim::driver {
namespace {

Continuation ReadContinuation(const std::string &text) {
    Continuation result;
    int owns = 0;
    if (std::sscanf(text.c_str(), "%zu:%d:%d:%d", &result.line, &result.expectations, &result.failures, &owns) != 4) {
        throw UsageError("bad continuation " + text);
    }
    result.ownsState = owns != 0;
    return result;
}

std::string WriteContinuation(const Continuation &continuation) {
    return std::to_string(continuation.line) + ":" + std::to_string(continuation.expectations) + ":" +
           std::to_string(continuation.failures) + ":" + (continuation.ownsState ? "1" : "0");
}

} // namespace

void CheckHost(const std::string &name) {
    std::string known;
    for (const hosts::HostEntry &entry : hosts::Hosts()) {
        if (name == entry.name) {
            return;
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
        if (!word.starts_with("--")) {
            plain.push_back(word);
            continue;
        }
        if (i + 1 == count) {
            throw UsageError(word + " wants a value");
        }
        const std::string value = words[++i];
        if (word == "--host") {
            options.host = value;
        } else if (word == "--bundle") {
            options.bundle = value;
        } else if (word == "--library") {
            options.library = value;
        } else if (word == "--state") {
            options.state = value;
        } else if (word == "--pictures") {
            options.pictures = value;
        } else if (word == "--continue") {
            options.continuation = ReadContinuation(value);
        } else {
            throw UsageError("unknown option " + word);
        }
    }
    options.listsApi = plain == std::vector<std::string>{"api"};
    if (options.listsApi) {
        return options;
    }
    if (plain.size() != 2 || plain[0] != "run") {
        throw UsageError("expected 'run FILE' or 'api'");
    }
    options.script = plain[1];
    CheckHost(options.host);
    return options;
}

std::string Usage() {
    return "usage: corvel-sim --host NAME [--bundle ID|nil] [--library PATH|none] [--state DIR] [--pictures DIR] "
           "run FILE|-\n"
           "       corvel-sim api\n";
}

void Relaunch(const Options &options, const Continuation &continuation) {
    std::vector<std::string> words{"corvel-sim",     "--host",      options.host,
                                   "--state",        options.state, "--pictures",
                                   options.pictures, "--continue",  WriteContinuation(continuation)};
    if (options.bundle) {
        words.insert(words.end(), {"--bundle", *options.bundle});
    }
    if (!options.library.empty()) {
        words.insert(words.end(), {"--library", options.library});
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
