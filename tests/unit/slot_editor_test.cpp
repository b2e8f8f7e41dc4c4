// The slot editor's views: how long they live.

#include "matrix/slot_editor_views.hpp"
#include "runtime_support.hpp"
#include "uikit/uikit.hpp"

#include <gtest/gtest.h>

#include <optional>

namespace corvel {
namespace {

TEST(SlotEditorViews, GoOnceTheyAreUntied) {
    if (objc_getClass("UIView") == nullptr) {
        sim::RegisterUIKit();
    }
    std::optional<objc::WeakRef<ui::View>> box;
    std::optional<objc::WeakRef<ui::TextView>> textView;
    {
        const test::Pool pool;
        const SlotEditor editor = BuildSlotEditor(3, "x"_ns);
        box.emplace(editor.box.get());
        textView.emplace(editor.textView.get());
        UntieIfGone(editor.controller);
    }
    EXPECT_FALSE(box->Lock());
    EXPECT_FALSE(textView->Lock());
}

} // namespace
} // namespace corvel
