// The slot editor's views: how long they live.

#include "matrix/slot_editor_views.hpp"
#include "runtime_support.hpp"
#include "uikit/uikit.hpp"

#include <gtest/gtest.h>

#include <optional>

namespace corvel {
namespace {

class SlotEditorViews : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (objc_getClass("UIView") == nullptr) {
            sim::RegisterUIKit();
        }
    }

    /// Whether box and text view are gone after the editor was let go of.
    static bool AreGone(bool untied) {
        std::optional<objc::WeakRef<ui::View>> box;
        std::optional<objc::WeakRef<ui::TextView>> textView;
        {
            const test::Pool pool;
            const SlotEditor editor = BuildSlotEditor(3, "x"_ns);
            box.emplace(editor.box.get());
            textView.emplace(editor.textView.get());
            if (untied) {
                UntieSlotEditor(editor.controller);
            }
        }
        return !box->Lock() && !textView->Lock();
    }
};

TEST_F(SlotEditorViews, HoldTheirControllerUntilTheyAreUntied) {
    EXPECT_FALSE(AreGone(false));
    EXPECT_TRUE(AreGone(true));
}

} // namespace
} // namespace corvel
