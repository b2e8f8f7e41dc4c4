// The keyboard, and the text that is being edited.

#include "apple/uikit/pasteboard.hpp"
#include "driver/subjects/subjects.hpp"
#include "driver/view_properties.hpp"
#include "runtime/clock.hpp"
#include "runtime/utf16.hpp"
#include "script/text.hpp"
#include "uikit/keyboard.hpp"
#include "uikit/keyboard_keys.hpp"
#include "uikit/text_input.hpp"

#include <limits>

namespace sim::driver {
namespace {

void CheckEditing(const WordReader &words) {
    if (!EditedView()) {
        words.Fail("no text is being edited");
    }
}

constexpr ns::Range kWholeText{0, std::numeric_limits<unsigned long>::max()};

unsigned long ReadUnits(WordReader &words, const char *what) {
    const long units = words.Integer(what);
    if (units < 0) {
        words.Fail("a text has no units before its first");
    }
    return static_cast<unsigned long>(units);
}

/// Points or seconds.
double ReadLength(WordReader &words, const char *what) {
    const double length = words.Number(what);
    if (!(length >= 0 && length <= 1e4)) {
        words.Fail("the keyboard cannot do that");
    }
    return length;
}

/// One key a character: a pair of surrogates is one key.
std::vector<std::u16string> Keys(const std::u16string &units) {
    std::vector<std::u16string> keys;
    for (std::size_t i = 0; i < units.size(); i += keys.back().size()) {
        keys.push_back(units.substr(i, UnitCount(PointAt(units, i))));
    }
    return keys;
}

void DoType(Session &, WordReader &words) {
    const std::u16string units = script::ToUtf16(words.QuotedText("what to type")).value_or(u"");
    words.End();
    for (const std::u16string &key : Keys(units)) {
        CheckEditing(words); // a key may have ended it
        if (IsNumberPad(EditedView()) && (key.front() < u'0' || key.front() > u'9')) {
            words.Fail("the number pad has digits only");
        }
        TypeText(StringOf(key));
        clock::Drain();
    }
}

/// What the menu over a text offers; it goes into a field for numbers as well, whatever it is.
void DoPaste(Session &, WordReader &words) {
    words.End();
    CheckEditing(words);
    const ns::String text = ui::Pasteboard::generalPasteboard().string();
    if (!text) {
        words.Fail("the pasteboard holds no text");
    }
    TypeText(text);
}

void DoErase(Session &, WordReader &words) {
    const bool all = words.Take("all");
    const long count = all ? 1 : words.Integer("the number of characters, or all");
    words.End();
    CheckEditing(words);
    if (all) {
        SelectText(kWholeText);
    }
    for (long i = 0; i < count; ++i) {
        CheckEditing(words);
        TypeDelete();
        clock::Drain();
    }
}

/// select all|FROM LENGTH
void DoSelect(Session &, WordReader &words) {
    ns::Range range = kWholeText;
    if (!words.Take("all")) {
        range.location = ReadUnits(words, "where it begins");
        range.length = ReadUnits(words, "how long it is");
    }
    words.End();
    CheckEditing(words);
    SelectText(range);
}

/// keyboard height POINTS | duration SECONDS | hide
void DoKeyboard(Session &session, WordReader &words) {
    if (words.Take("height")) {
        SetKeyboardHeight(ReadLength(words, "points"));
    } else if (words.Take("duration")) {
        SetKeyboardDuration(ReadLength(words, "seconds"));
    } else {
        words.Expect("hide");
        words.End();
        if (!session.launched) {
            words.Fail("there is no keyboard yet");
        }
        CheckEditing(words);
        objc::Send<"resignFirstResponder", bool>(ui::Responder{EditedView()});
    }
}

Answer AskKeyboard(Session &, WordReader &) {
    const std::optional<cg::Rect> frame = KeyboardFrame();
    return frame ? Answer{DescribeRect(*frame)} : Answer{};
}

Answer AskEditing(Session &, WordReader &words) {
    const ui::View view = EditedView();
    if (!view) {
        words.Rest();
        return {};
    }
    if (words.Take("selection")) {
        const ns::Range selection = TextInputOf(view)->text(view).selection();
        return {{Bare(selection.location), Bare(selection.length)}};
    }
    return {words.AtEnd() ? DescribeView(view) : DescribeProperty(view, words)};
}

constexpr Command kCommands[] = {
    {"type", &DoType},
    {"paste", &DoPaste},
    {"erase", &DoErase},
    {"select", &DoSelect},
    {"keyboard", &DoKeyboard, When::kBeforeLaunchToo},
};

constexpr Query kQueries[] = {{"keyboard", &AskKeyboard}, {"editing", &AskEditing}};

} // namespace

constinit const Subject kTyping{kCommands, kQueries};

} // namespace sim::driver
