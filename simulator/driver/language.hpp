#pragma once
// What scripts can do and ask. Each subject (subjects/) has a table of its commands and one of its queries.

#include "driver/session.hpp"

namespace sim::driver {

enum class When { kAfterLaunch, kBeforeLaunchToo };

struct Command {
    const char *name;
    void (*execute)(Session &session, WordReader &words);
    When when = When::kAfterLaunch;
};

struct Query {
    const char *name;
    Answer (*ask)(Session &session, WordReader &words);
};

struct Subject {
    std::span<const Command> commands;
    std::span<const Query> queries;
};

/// Reads a command (its first word names it) and carries it out. Throws ScriptError, also for a command that comes
/// before the launch although it needs the app.
void Execute(Session &session, WordReader &words);

/// Reads a query (its first word names it) and answers it. Throws ScriptError.
Answer Ask(Session &session, WordReader &words);

} // namespace sim::driver
