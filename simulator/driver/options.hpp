#pragma once
// The command line.

#include "hosts/host.hpp"

#include <stdexcept>
#include <string>

namespace sim::driver {

/// A command line that makes no sense.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Options {
    bool listsApi = false;      // `api` instead of `run FILE`
    bool listsVariants = false; // `variants` instead
    std::string script;         // "-": standard input
    std::string host;
    std::string bundle;   // "nil" for a bundle without an identifier; empty: the host's own
    std::string library;  // "none": no library
    std::string words;    // the file of a script's own words; empty: none
    std::string rules;    // the file of what must hold after every line; empty: nothing
    std::string variants; // names apart by commas: what the phone does the other way
    std::string state;    // empty: a fresh directory, removed at the end
    std::string pictures = ".";
    bool isLenient = false; // lines that make no sense are passed over
    std::string progress;   // given by `relaunch` to the process that it starts
};

/// How far a run has come.
struct Progress {
    std::size_t line = 0;   // of the script's lines with all includes
    int expectations = 0;   // met so far
    int failures = 0;       // of them
    bool ownsState = false; // the state directory is removed at the end
};

/// Reads the command line; throws UsageError.
Options ReadOptions(int count, char **words);

/// The app of that name; throws UsageError when there is none.
const hosts::HostEntry &FindHost(const std::string &name);

/// How far the run had come before this process began; throws UsageError.
Progress ReadProgress(const Options &options);

/// How the program is used, in a few lines.
std::string Usage();

/// Replaces this process by one that goes on with the script as the progress says. Returns only on failure.
void Relaunch(Options options, const Progress &progress);

} // namespace sim::driver
