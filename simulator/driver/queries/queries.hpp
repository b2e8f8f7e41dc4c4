#pragma once
// What scripts can ask. `print` and `expect` share one table.

#include "driver/session.hpp"

namespace sim::driver {

/// Reads a query (its first word names it) and answers it. Throws ScriptError.
script::Answer Ask(Session &session, script::WordReader &words);

// One function a query; the table in queries.cpp names them.
script::Answer AskViews(Session &session, script::WordReader &words);
script::Answer AskView(Session &session, script::WordReader &words);
script::Answer AskAll(Session &session, script::WordReader &words);
script::Answer AskOrder(Session &session, script::WordReader &words);
script::Answer AskHit(Session &session, script::WordReader &words);
script::Answer AskToast(Session &session, script::WordReader &words);
script::Answer AskWindows(Session &session, script::WordReader &words);
script::Answer AskScenes(Session &session, script::WordReader &words);
script::Answer AskPreference(Session &session, script::WordReader &words);
script::Answer AskPreferences(Session &session, script::WordReader &words);
script::Answer AskLog(Session &session, script::WordReader &words);
script::Answer AskPresented(Session &session, script::WordReader &words);
script::Answer AskAlerts(Session &session, script::WordReader &words);
script::Answer AskAlert(Session &session, script::WordReader &words);
script::Answer AskKeyboard(Session &session, script::WordReader &words);
script::Answer AskEditing(Session &session, script::WordReader &words);
script::Answer AskPasteboard(Session &session, script::WordReader &words);
script::Answer AskHost(Session &session, script::WordReader &words);
script::Answer AskComments(Session &session, script::WordReader &words);
script::Answer AskComment(Session &session, script::WordReader &words);
script::Answer AskCall(Session &session, script::WordReader &words);
script::Answer AskAlbum(Session &session, script::WordReader &words);
script::Answer AskHaptics(Session &session, script::WordReader &words);
script::Answer AskNotifications(Session &session, script::WordReader &words);
script::Answer AskTime(Session &session, script::WordReader &words);
script::Answer AskCount(Session &session, script::WordReader &words);

} // namespace sim::driver
