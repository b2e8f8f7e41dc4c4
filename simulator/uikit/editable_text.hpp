#pragma once
// A text under edit: its UTF-16 units and what is selected of them, for every view that takes typing.

#include "apple/foundation/string.hpp"
#include "objc/ref.hpp"

namespace sim {

class EditableText {
  public:
    /// The whole text; never nil.
    ns::String text() const;
    /// Puts another text (nil: an empty one) in its place; the caret goes to its end.
    void SetText(ns::String text);

    /// What is selected; a length of 0 is a caret.
    ns::Range selection() const {
        return selection_;
    }
    /// Selects a part; what lies beyond the text is left out.
    void Select(ns::Range range);

    /// Types: the text takes the place of what is selected, the caret stands behind it.
    void Insert(ns::String text);
    /// The delete key: takes what is selected away, else the character, as readers see it, before the caret.
    void DeleteBackward();

  private:
    void Replace(ns::Range range, ns::String text);

    objc::Ref<ns::String> text_;
    ns::Range selection_;
};

} // namespace sim
