#pragma once
// Something that must hold after every line of a script.

#include "driver/library.hpp"
#include "script/lexer.hpp"

#include <memory>

namespace sim::driver {

class Invariant {
  public:
    Invariant() = default;
    Invariant(const Invariant &) = delete;
    Invariant &operator=(const Invariant &) = delete;
    virtual ~Invariant() noexcept(false) = default; // references that go with it may run anything

    /// The app has been launched and the library injected; no line that needs them has been played.
    virtual void Begin(const Library &, const std::string & /*host*/) {}
    /// What is wrong after the line, in words; empty when it holds.
    virtual std::string Broken(const script::Line &line) = 0;
};

/// Each reads the words of a rule that follow its name. Throws ScriptError.
std::unique_ptr<Invariant> MakeSingle(WordReader &words);
std::unique_ptr<Invariant> MakeAbove(WordReader &words);
std::unique_ptr<Invariant> MakeThrough(WordReader &words);
std::unique_ptr<Invariant> MakeReleased(WordReader &words);
std::unique_ptr<Invariant> MakeKeys(WordReader &words);
std::unique_ptr<Invariant> MakeSends(WordReader &words);

} // namespace sim::driver
