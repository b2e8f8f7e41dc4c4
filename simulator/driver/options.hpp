#pragma once
// The command line.

#include <optional>
#include <stdexcept>
#include <string>

namespace sim::driver {

/// A command line that makes no sense.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Where a run that replaced its process goes on.
struct Continuation {
    std::size_t line = 0;   // of the script's lines with all includes
    int expectations = 0;   // met so far
    int failures = 0;       // of them
    bool ownsState = false; // the state directory is removed at the end
};

struct Options {
    bool listsApi = false; // `api` instead of `run FILE`
    std::string script;    // "-": standard input
    std::string host;
    std::optional<std::string> bundle; // "nil" for a bundle without an identifier; unset: the host's own
    std::string library;               // empty: libCorvel.so beside the executable; "none": no library
    std::string state;                 // empty: a fresh directory, removed at the end
    std::string pictures = ".";
    std::optional<Continuation> continuation; // given by `relaunch` to the process that it starts
};

/// Reads the command line; throws UsageError.
Options ReadOptions(int count, char **words);

/// Throws UsageError unless there is an app of that name to simulate.
void CheckHost(const std::string &name);

/// How the program is used, in a few lines.
std::string Usage();

/// Replaces this process by one that goes on with the script as the continuation says. Returns only on failure.
void Relaunch(const Options &options, const Continuation &continuation);

} // namespace sim::driver
