#include "uikit/text_input.hpp"

#include "uikit/by_class.hpp"
#include "uikit/responder.hpp"

namespace sim {
namespace {

ByClass<TextInput> &Inputs() {
    static ByClass<TextInput> inputs;
    return inputs;
}

/// Changes the text under edit and tells its view.
template <class Change> void Edit(const Change &change) {
    const objc::Ref<ui::View> view = EditedView();
    const TextInput &input = *TextInputOf(view.get());
    change(input.text(view));
    input.edited(view);
}

} // namespace

void RegisterTextInput(const char *className, TextInput input) {
    Inputs().Set(className, input);
}

const TextInput *TextInputOf(ui::Responder view) {
    return Inputs().Find(view);
}

ui::View EditedView() {
    const ui::Responder first = FirstResponder();
    return TextInputOf(first) != nullptr ? objc::As<ui::View>(first) : ui::View{};
}

void TypeText(ns::String text) {
    Edit([text](EditableText &edited) { edited.Insert(text); });
}

void TypeDelete() {
    Edit([](EditableText &edited) { edited.DeleteBackward(); });
}

void SelectText(ns::Range range) {
    Edit([range](EditableText &edited) { edited.Select(range); });
}

} // namespace sim
