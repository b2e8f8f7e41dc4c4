#pragma once
// What scripts can do.

#include "driver/session.hpp"

namespace sim::driver {

/// Reads a command (its first word names it) and carries it out. Throws ScriptError, also for a command that comes
/// before the launch although it needs the app, or after it although it shapes the app.
void Execute(Session &session, script::WordReader &words);

// One function a command; the table in commands.cpp names them.
void DoWait(Session &session, script::WordReader &words);
void DoTap(Session &session, script::WordReader &words);
void DoPress(Session &session, script::WordReader &words);
void DoDrag(Session &session, script::WordReader &words);
void DoTouch(Session &session, script::WordReader &words);
void DoSlide(Session &session, script::WordReader &words);
void DoScroll(Session &session, script::WordReader &words);
void DoPick(Session &session, script::WordReader &words);
void DoType(Session &session, script::WordReader &words);
void DoErase(Session &session, script::WordReader &words);
void DoSelect(Session &session, script::WordReader &words);
void DoKeyboard(Session &session, script::WordReader &words);
void DoSet(Session &session, script::WordReader &words);
void DoUnset(Session &session, script::WordReader &words);
void DoPasteboard(Session &session, script::WordReader &words);
void DoHost(Session &session, script::WordReader &words);
void DoCall(Session &session, script::WordReader &words);
void DoNotify(Session &session, script::WordReader &words);
void DoScene(Session &session, script::WordReader &words);
void DoWindow(Session &session, script::WordReader &words);
void DoPresent(Session &session, script::WordReader &words);
void DoDismiss(Session &session, script::WordReader &words);
void DoAppearance(Session &session, script::WordReader &words);
void DoPicture(Session &session, script::WordReader &words);
void DoPrint(Session &session, script::WordReader &words);
void DoExpect(Session &session, script::WordReader &words);
void DoEcho(Session &session, script::WordReader &words);
void DoRelaunch(Session &session, script::WordReader &words);

} // namespace sim::driver
