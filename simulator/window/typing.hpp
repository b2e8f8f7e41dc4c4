#pragma once
// The computer's keyboard and its clipboard, for the text that is being edited on the phone.

#include "window/live_run.hpp"

#include <string>

namespace sim::window {

enum class EditKey { kReturn, kBackspace, kDelete, kLeft, kRight, kHome, kEnd, kSelectAll, kHideKeyboard };

class Typing {
  public:
    explicit Typing(LiveRun &run) : run_(run) {}

    /// Whether a text is being edited.
    static bool IsUnderWay();

    /// What the keyboard or its input method has made (UTF-8). A number pad takes the digits of it. Ignored, as are
    /// keys, while nothing is being edited.
    void Enter(const std::string &text);
    void Press(EditKey key);

    /// Puts the computer's clipboard on the pasteboard, and into the text that is being edited.
    void Paste(const std::string &text);

    /// Puts what is selected on the pasteboard; takes it out of the text, too, when it is cut.
    void Copy(bool cut);

  private:
    LiveRun &run_;
};

} // namespace sim::window
