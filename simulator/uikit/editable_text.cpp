#include "uikit/editable_text.hpp"

#include "runtime/method_body.hpp"

#include <algorithm>

namespace sim {

ns::String EditableText::text() const {
    return text_ ? text_.get() : ""_ns;
}

void EditableText::SetText(ns::String text) {
    text_ = CopyOf(text);
    selection_ = {text_.get().length(), 0};
}

void EditableText::Select(ns::Range range) {
    const unsigned long length = text().length();
    selection_.location = std::min(range.location, length);
    selection_.length = std::min(range.length, length - selection_.location);
}

void EditableText::Insert(ns::String text) {
    Replace(selection_, text);
}

void EditableText::DeleteBackward() {
    if (selection_.length > 0) {
        Replace(selection_, ""_ns);
    } else if (selection_.location > 0) {
        const ns::Range character = text().rangeOfComposedCharacterSequenceAtIndex(selection_.location - 1);
        Replace({character.location, selection_.location - character.location}, ""_ns);
    }
}

void EditableText::Replace(ns::Range range, ns::String text) {
    const ns::String whole = this->text();
    const ns::String head = whole.substringToIndex(range.location).stringByAppendingString(text);
    text_ = head.stringByAppendingString(whole.substringFromIndex(range.location + range.length));
    selection_ = {range.location + text.length(), 0};
}

} // namespace sim
