// Sheets on the simulated phone: which swipe takes one away, and what the presentation controller's delegate hears.

#include "apple/uikit/gesture_recognizer.hpp"
#include "apple/uikit/window.hpp"
#include "drawing_support.hpp"
#include "runtime/clock.hpp"
#include "runtime_support.hpp"
#include "uikit/application.hpp"
#include "uikit/touch.hpp"
#include "uikit/uikit.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

Lines &Heard() {
    static Lines lines;
    return lines;
}

bool g_maySwipe = true;

bool ShouldDismiss(objc::Object, objc::SEL, ns::Object) {
    Heard().emplace_back("should");
    return g_maySwipe;
}

template <objc::FixedString What> void Hear(objc::Object, objc::SEL, ns::Object) {
    Heard().push_back(What.data);
}

/// Hears what a delegate may hear; another class of delegates implements none of it.
struct SheetDelegate : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "SheetDelegate";
};

class Sheet : public testing::Test {
  protected:
    Sheet() {
        if (objc_getClass("UIView") == nullptr) {
            sim::RegisterUIKit();
            const objc::MethodEntry methods[] = {
                objc::MethodNamed<"presentationControllerShouldDismiss:", &ShouldDismiss>(),
                objc::MethodNamed<"presentationControllerWillDismiss:", &Hear<"will">>(),
                objc::MethodNamed<"presentationControllerDidDismiss:", &Hear<"did">>(),
                objc::MethodNamed<"presentationControllerDidAttemptToDismiss:", &Hear<"attempt">>(),
            };
            corvel::test::RegisterClass(SheetDelegate::kClassName, "NSObject", methods);
        }
        Heard().clear();
        g_maySwipe = true;
        scene = sim::MakeWindowScene(UISceneActivationStateForegroundActive);
        window = objc::Ref<ui::Window>::Adopt(ns::Alloc<ui::Window>().initWithWindowScene(scene));
        host = ns::New<ui::ViewController>();
        window->setRootViewController(host);
        window->makeKeyAndVisible();
        sheet = ns::New<ui::ViewController>();
        delegate = ns::New<SheetDelegate>();
        SetDelegate(delegate.get());
        host->presentViewController(sheet, true, nullptr);
        sim::clock::Advance(1);
    }
    ~Sheet() noexcept override {
        window->setHidden(true);
        window = nullptr;
        sim::DisconnectScene(scene);
        sim::clock::Advance(1);
    }

    void SetDelegate(ns::Object to) const {
        objc::Send<"setDelegate:", void>(objc::Send<"presentationController", ns::Object>(sheet.get()), to);
    }
    bool IsUp() const {
        return host->presentedViewController() == sheet.get();
    }
    /// Draws the sheet by its top over a way (points) in a time (seconds), and lets it come to rest.
    static void Swipe(double way, double seconds) {
        constexpr int kSteps = 10;
        sim::touch::Began(1, {195, 80});
        for (int i = 1; i <= kSteps; ++i) {
            sim::clock::Advance(seconds / kSteps);
            sim::touch::Moved(1, {195, 80 + way * i / kSteps});
        }
        sim::touch::Ended(1, {195, 80 + way});
        sim::clock::Advance(1);
    }

    corvel::test::Pool pool;
    ui::WindowScene scene;
    objc::Ref<ui::Window> window;
    objc::Ref<ui::ViewController> host;
    objc::Ref<ui::ViewController> sheet;
    objc::Ref<SheetDelegate> delegate;
};

TEST_F(Sheet, GoesWhenItIsDrawnFarOrFast) {
    Swipe(500, 2);
    EXPECT_EQ(Heard(), (Lines{"should", "will", "did"}));
    EXPECT_FALSE(IsUp());
    Heard().clear();
    host->presentViewController(sheet, false, nullptr);
    sim::clock::Drain();
    SetDelegate(nullptr);
    Swipe(200, 0.1);
    EXPECT_EQ(Heard(), Lines{});
    EXPECT_FALSE(IsUp());
    EXPECT_EQ(window->subviews().count(), 1UL);
}

TEST_F(Sheet, ComesBackWhenItIsLetGoOfTooSoonOrDrawnElsewhere) {
    const cg::Rect place = sheet->view().frame();
    Swipe(200, 2);
    EXPECT_TRUE(IsUp());
    EXPECT_EQ(sheet->view().frame(), place);
    EXPECT_EQ(Heard(), (Lines{"should", "will"})); // it might have gone
    EXPECT_FALSE((objc::Send<"isBeingDismissed", bool>(sheet.get())));
    Heard().clear();
    Swipe(-60, 0.01);
    EXPECT_EQ(Heard(), Lines{});
    EXPECT_EQ(sheet->view().frame(), place);
    Swipe(500, 2);
    EXPECT_FALSE(IsUp());
}

TEST_F(Sheet, StaysWhereItMayNotGo) {
    g_maySwipe = false;
    Swipe(600, 0.1);
    EXPECT_TRUE(IsUp());
    EXPECT_EQ(Heard(), (Lines{"should", "attempt"}));
    Heard().clear();
    objc::Send<"setModalInPresentation:", void>(sheet.get(), true);
    Swipe(600, 0.1);
    EXPECT_TRUE(IsUp());
    EXPECT_EQ(Heard(), Lines{"attempt"});
    sheet->dismissViewControllerAnimated(true, nullptr); // the app itself may
    sim::clock::Advance(1);
    EXPECT_FALSE(IsUp());
    EXPECT_EQ(Heard(), Lines{"attempt"});
}

TEST_F(Sheet, OnlySheetsAreSwiped) {
    host->dismissViewControllerAnimated(false, nullptr);
    sheet->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    host->presentViewController(sheet, true, nullptr);
    sim::clock::Advance(1);
    SetDelegate(delegate.get());
    Swipe(600, 0.1);
    EXPECT_TRUE(IsUp());
    EXPECT_EQ(Heard(), Lines{});
}

TEST_F(Sheet, IsGoneWithItsWindowUnderTheFinger) {
    sim::touch::Began(1, {195, 80});
    sim::touch::Moved(1, {195, 200});
    window->setHidden(true);
    sheet->view().removeFromSuperview();
    sim::touch::Moved(1, {195, 700});
    sim::touch::Ended(1, {195, 700});
    sim::clock::Advance(1);
    EXPECT_EQ(Heard(), (Lines{"should", "will"}));
}

TEST_F(Sheet, PushesBackWhatItCovers) {
    using corvel::test::Picture;
    host->view().setBackgroundColor(corvel::test::Rgb(0x00FF00));
    sheet->view().setBackgroundColor(corvel::test::Rgb(0xFF0000));
    const auto isHost = [](std::uint32_t pixel) { return (pixel >> 8 & 0xFF) > 0x80; };
    const auto isSheet = [](std::uint32_t pixel) { return pixel == corvel::test::kRed; };
    const auto draw = [&] { return Picture(window, 390, 844); };
    EXPECT_FALSE(isHost(draw().At(200, 44))) << "it begins below the status bar,";
    EXPECT_TRUE(isHost(draw().At(200, 50)));
    EXPECT_TRUE(isHost(draw().At(30, 50))) << "narrower than the screen";
    EXPECT_FALSE(isHost(draw().At(12, 50)));
    EXPECT_TRUE(isSheet(draw().At(195, 57)));
    EXPECT_FALSE(isSheet(draw().At(1, 57))) << "its upper corners are round,";
    EXPECT_TRUE(isSheet(draw().At(0, 843))) << "its lower ones out of sight";
    EXPECT_EQ(host->view().frame(), (cg::Rect{{0, 0}, {390, 844}})) << "none of it is in the values";

    // It comes forward while a finger takes the sheet away.
    sim::touch::Began(1, {195, 80});
    sim::touch::Moved(1, {195, 180});
    sim::touch::Moved(1, {195, 480});
    EXPECT_TRUE(isHost(draw().At(200, 30)));
    EXPECT_TRUE(isHost(draw().At(12, 200)));
    EXPECT_FALSE(isHost(draw().At(200, 10)));
    sim::touch::Ended(1, {195, 480});
    host->dismissViewControllerAnimated(false, nullptr);
    sim::clock::Advance(1);
    EXPECT_TRUE(isHost(draw().At(0, 0)));
}

} // namespace
