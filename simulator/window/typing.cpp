#include "window/typing.hpp"

#include "script/text.hpp"
#include "script/values.hpp"
#include "uikit/keyboard_keys.hpp"
#include "uikit/text_input.hpp"

#include <algorithm>

namespace sim::window {
namespace {

std::string Caret(unsigned long place) {
    return "select " + std::to_string(place) + " 0";
}

/// Where the caret goes from a selection by an arrow: over one character, as readers see it, or to the selection's end.
unsigned long Beside(const EditableText &text, bool right) {
    const ns::Range selection = text.selection();
    const ns::String whole = text.text();
    if (selection.length > 0) {
        return selection.location + (right ? selection.length : 0);
    }
    if (right) {
        const bool atEnd = selection.location >= whole.length();
        const ns::Range next = atEnd ? ns::Range{} : whole.rangeOfComposedCharacterSequenceAtIndex(selection.location);
        return atEnd ? whole.length() : next.location + next.length;
    }
    return selection.location == 0 ? 0 : whole.rangeOfComposedCharacterSequenceAtIndex(selection.location - 1).location;
}

} // namespace

bool Typing::IsUnderWay() {
    return static_cast<bool>(EditedView());
}

void Typing::Enter(const std::string &text) {
    const ui::View view = EditedView();
    if (!view) {
        return;
    }
    std::string typed = text;
    if (IsNumberPad(view)) {
        std::erase_if(typed, [](char c) { return c < '0' || c > '9'; });
    }
    if (!typed.empty()) {
        run_.Do("type " + script::Quoted(typed));
    }
}

void Typing::Press(EditKey key) {
    const ui::View view = EditedView();
    if (!view) {
        return;
    }
    const EditableText &text = TextInputOf(view)->text(view);
    switch (key) {
    case EditKey::kReturn:
        Enter("\n");
        break;
    case EditKey::kBackspace:
        run_.Do("erase 1");
        break;
    case EditKey::kDelete:
        if (text.selection().length == 0) {
            const unsigned long next = Beside(text, true);
            if (next == text.selection().location) {
                break; // nothing stands behind the caret
            }
            run_.Do(Caret(next));
        }
        run_.Do("erase 1");
        break;
    case EditKey::kLeft:
        run_.Do(Caret(Beside(text, false)));
        break;
    case EditKey::kRight:
        run_.Do(Caret(Beside(text, true)));
        break;
    case EditKey::kHome:
        run_.Do(Caret(0));
        break;
    case EditKey::kEnd:
        run_.Do(Caret(text.text().length()));
        break;
    case EditKey::kSelectAll:
        run_.Do("select all");
        break;
    case EditKey::kHideKeyboard:
        run_.Do("keyboard hide");
        break;
    }
}

void Typing::Paste(const std::string &text) {
    run_.Do("pasteboard " + script::Quoted(text));
    if (IsUnderWay()) {
        run_.Do("paste");
    }
}

void Typing::Copy(bool cut) {
    const ui::View view = EditedView();
    if (!view) {
        return;
    }
    const EditableText &text = TextInputOf(view)->text(view);
    if (text.selection().length == 0) {
        return;
    }
    run_.Do("pasteboard " + script::Quoted(script::TextOf(text.text().substringWithRange(text.selection()))));
    if (cut) {
        run_.Do("erase 1");
    }
}

} // namespace sim::window
