#pragma once
// The invariants of a run, from a file of rules: what the simulator, which knows no library, is to look after.

#include "driver/invariants/invariant.hpp"

#include <stdexcept>
#include <vector>

namespace sim::driver {

/// A rule was broken: what() says which and how.
class BrokenRule : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

class Rules {
  public:
    /// Reads the rules, one a line. Before the script's first line; throws ScriptError.
    void Load(const std::string &file);
    /// To be called once the library is there.
    void Begin(const Library &library, const std::string &host);
    /// Throws BrokenRule for the first rule that does not hold after the line.
    void Check(const script::Line &line) const;

  private:
    struct Rule {
        std::string text;
        std::unique_ptr<Invariant> invariant;
    };
    std::vector<Rule> rules_;
};

} // namespace sim::driver
