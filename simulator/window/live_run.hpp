#pragma once
// A run without a script: what the user does becomes lines of one, each carried out at once and kept, so that the same
// can be played again.

#include "driver/session.hpp"
#include "script/lexer.hpp"

#include <functional>
#include <string>

namespace sim::window {

class LiveRun {
  public:
    /// A run on a phone that is switched on.
    explicit LiveRun(driver::Session &session);

    /// Carries out a line of a script and keeps it. A line that makes no sense now is not kept: complaint() says why.
    /// An exception that comes out of app or library ends the app. Does nothing once that has ended.
    void Do(const std::string &line);

    /// Carries out the lines of a file, as if the user had done them. Throws ScriptError.
    void DoAll(const std::string &file);

    /// Lets time pass on the phone, in milliseconds.
    void Pass(int milliseconds);

    /// Runs what may reach app or library without being an event, such as drawing; an exception that comes out of it
    /// ends the app.
    void Watch(const std::function<void()> &work);

    /// The answer to a query, as a script asks it; nothing for one that there is no word for.
    Answer Ask(const std::string &query);

    /// Whether an exception has ended the app.
    bool hasEnded() const {
        return ended_;
    }

    /// Why a line was not carried out, or what ended the app; empty when all is well. It lasts until Forgive().
    const std::string &complaint() const {
        return complaint_;
    }
    void Forgive() {
        complaint_.clear();
    }

    /// Everything done so far as a script, which begins with what the phone kept at the start and ends with what
    /// comments are expected.
    std::string Script() const;

    /// How many comments the app has received since the launch.
    static std::size_t CommentCount();

  private:
    /// Runs work of which an exception that reaches the host ends the app.
    void Survive(const std::function<void()> &work);
    void Carry(const script::Line &line);
    void Keep(const std::string &line);

    driver::Session &session_;
    std::string setup_; // the lines that come before the launch
    std::string done_;  // those after it
    long passed_ = 0;   // milliseconds since the last of them
    bool ended_ = false;
    std::string complaint_;
};

} // namespace sim::window
