#include "driver/queries/queries.hpp"

namespace sim::driver {
namespace {

struct Query {
    const char *name;
    script::Answer (*ask)(Session &session, script::WordReader &words);
};

// A new query is one line here, its function in the file of its subject, and one row in docs/simulator.md.
constexpr Query kQueries[] = {
    {"views", &AskViews},
    {"view", &AskView},
    {"all", &AskAll},
    {"order", &AskOrder},
    {"hit", &AskHit},
    {"toast", &AskToast},
    {"windows", &AskWindows},
    {"scenes", &AskScenes},
    {"pref", &AskPreference},
    {"prefs", &AskPreferences},
    {"log", &AskLog},
    {"presented", &AskPresented},
    {"alerts", &AskAlerts},
    {"alert", &AskAlert},
    {"keyboard", &AskKeyboard},
    {"editing", &AskEditing},
    {"pasteboard", &AskPasteboard},
    {"host", &AskHost},
    {"comments", &AskComments},
    {"comment", &AskComment},
    {"call", &AskCall},
    {"album", &AskAlbum},
    {"haptics", &AskHaptics},
    {"notifications", &AskNotifications},
    {"time", &AskTime},
    {"count", &AskCount},
};

} // namespace

script::Answer Ask(Session &session, script::WordReader &words) {
    const std::string name = words.Name("a query");
    for (const Query &query : kQueries) {
        if (name == query.name) {
            script::Answer answer = query.ask(session, words);
            words.End();
            return answer;
        }
    }
    words.Fail("unknown query " + name);
}

script::Answer AskCount(Session &session, script::WordReader &words) {
    return {{script::Bare(std::to_string(Ask(session, words).size()))}};
}

} // namespace sim::driver
