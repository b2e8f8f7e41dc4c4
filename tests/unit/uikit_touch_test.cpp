// Touches on the simulated phone: what they hit, which gesture they become, what controls make of them; and when
// animations complete.

#include "apple/uikit/button.hpp"
#include "apple/uikit/gesture_recognizer.hpp"
#include "apple/uikit/segmented_control.hpp"
#include "apple/uikit/switch.hpp"
#include "apple/uikit/window.hpp"
#include "drawing_support.hpp"
#include "objc/guard.hpp"
#include "runtime/clock.hpp"
#include "runtime_support.hpp"
#include "uikit/animation.hpp"
#include "uikit/application.hpp"
#include "uikit/touch.hpp"
#include "uikit/uikit.hpp"
#include "uikit/view_state.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

/// What the targets below were told, in order.
Lines &Heard() {
    static Lines lines;
    return lines;
}

/// What the recognisers are called in those lines.
std::map<objc::id, std::string> &Names() {
    static std::map<objc::id, std::string> names;
    return names;
}

const char *StateName(UIGestureRecognizerState state) {
    static constexpr const char *kNames[] = {"possible", "began", "changed", "ended", "cancelled", "failed"};
    return kNames[state];
}

void HearGesture(objc::Object, objc::SEL, ui::GestureRecognizer recognizer) {
    Heard().push_back(Names()[recognizer.pointer] + " " + StateName(recognizer.state()));
}

template <objc::FixedString What> void Hear(objc::Object, objc::SEL, ui::View) {
    Heard().push_back(What.data);
}

bool IsHighlighted(ui::Button button) {
    return objc::Send<"isHighlighted", bool>(button);
}

cg::Point LocationIn(ui::GestureRecognizer recognizer, ui::View view) {
    return objc::Send<"locationInView:", cg::Point>(recognizer, view);
}

unsigned long NumberOfTouches(ui::GestureRecognizer recognizer) {
    return objc::Send<"numberOfTouches", unsigned long>(recognizer);
}

bool g_delegateReceives = true;
bool g_delegateBegins = true;
bool g_delegateSimultaneous = false;

bool ShouldReceive(objc::Object, objc::SEL, ui::GestureRecognizer, ui::Touch) {
    return g_delegateReceives;
}

bool ShouldBegin(objc::Object, objc::SEL, ui::GestureRecognizer) {
    return g_delegateBegins;
}

bool ShouldBeSimultaneous(objc::Object, objc::SEL, ui::GestureRecognizer, ui::GestureRecognizer) {
    return g_delegateSimultaneous;
}

// A window that takes no touch on itself.
struct PassingWindow : ui::Window {
    using ui::Window::Window;
    static constexpr const char *kClassName = "PassingWindow";
};

ui::View HitNotSelf(ui::View self, objc::SEL, cg::Point point, ui::Event event) {
    const ui::View hit = objc::SendSuper<"hitTest:withEvent:", ui::View>(ui::Window{self.pointer}, point, event);
    return hit == self ? ui::View{} : hit;
}

// A window that never becomes key.
struct ModestWindow : ui::Window {
    using ui::Window::Window;
    static constexpr const char *kClassName = "ModestWindow";
};

bool NeverKey(ui::Window, objc::SEL) {
    return false;
}

/// The object that hears everything: its class object serves as target too.
struct Listener : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "TouchTestListener";
};

void RegisterClasses() {
    if (objc_getClass("UIView") == nullptr) {
        sim::RegisterUIKit();
    }
    if (objc_getClass(Listener::kClassName) != nullptr) {
        return;
    }
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"gesture:", &HearGesture>(),
        objc::MethodNamed<"down:", &Hear<"down">>(),
        objc::MethodNamed<"upInside:", &Hear<"up inside">>(),
        objc::MethodNamed<"upOutside:", &Hear<"up outside">>(),
        objc::MethodNamed<"cancel:", &Hear<"cancel">>(),
        objc::MethodNamed<"enter:", &Hear<"enter">>(),
        objc::MethodNamed<"exit:", &Hear<"exit">>(),
        objc::MethodNamed<"gestureRecognizer:shouldReceiveTouch:", &ShouldReceive>(),
        objc::MethodNamed<"gestureRecognizerShouldBegin:", &ShouldBegin>(),
        objc::MethodNamed<"gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:",
                          &ShouldBeSimultaneous>(),
    };
    const objc::Class listener = corvel::test::RegisterClass(Listener::kClassName, "NSObject", methods);
    objc::AddMethods(objc::MetaclassOf(listener), methods);
    const objc::MethodEntry windowMethods[] = {objc::MethodNamed<"hitTest:withEvent:", &HitNotSelf>()};
    corvel::test::RegisterClass(PassingWindow::kClassName, "UIWindow", windowMethods);
    const objc::MethodEntry modestMethods[] = {objc::MethodNamed<"canBecomeKeyWindow", &NeverKey>()};
    corvel::test::RegisterClass(ModestWindow::kClassName, "UIWindow", modestMethods);
}

class UIKitTouch : public testing::Test {
  protected:
    UIKitTouch() {
        RegisterClasses();
        Heard().clear();
        Names().clear();
        g_delegateReceives = g_delegateBegins = true;
        g_delegateSimultaneous = false;
        scene = sim::MakeWindowScene(UISceneActivationStateForegroundActive);
        listener = ns::New<Listener>();
        window = MakeWindow<ui::Window>(0);
    }
    ~UIKitTouch() noexcept override {
        window->setHidden(true);
        window = nullptr;
        sim::DisconnectScene(scene);
        sim::clock::Advance(10); // what a test left under way
    }

    template <objc::Handle Kind> objc::Ref<Kind> MakeWindow(double level) {
        const auto made = objc::Ref<Kind>::Adopt(Kind{ns::Alloc<Kind>().initWithWindowScene(scene).pointer});
        made->setWindowLevel(level);
        made->makeKeyAndVisible();
        return made;
    }

    static objc::Ref<ui::View> AddView(ui::View parent, cg::Rect frame) {
        auto view = ui::MakeView<ui::View>(frame);
        parent.addSubview(view);
        return view;
    }

    /// A button that tells the listener everything.
    ui::Button AddButton(ui::View parent, cg::Rect frame) const {
        const ui::Button button = ui::Button::buttonWithType(UIButtonTypeCustom);
        button.setFrame(frame);
        button.addTarget(listener.get(), objc::Selector<"down:">(), UIControlEventTouchDown);
        button.addTarget(listener.get(), objc::Selector<"enter:">(), UIControlEventTouchDragEnter);
        button.addTarget(listener.get(), objc::Selector<"exit:">(), UIControlEventTouchDragExit);
        button.addTarget(listener.get(), objc::Selector<"upInside:">(), UIControlEventTouchUpInside);
        button.addTarget(listener.get(), objc::Selector<"upOutside:">(), UIControlEventTouchUpOutside);
        button.addTarget(listener.get(), objc::Selector<"cancel:">(), UIControlEventTouchCancel);
        parent.addSubview(button);
        return button;
    }

    template <objc::Handle Kind> Kind AddRecognizer(ui::View view, const char *name) const {
        const auto made = objc::Ref<Kind>::Adopt(
            Kind{ns::Alloc<Kind>().initWithTarget(listener.get(), objc::Selector<"gesture:">()).pointer});
        view.addGestureRecognizer(made);
        Names()[made.get().pointer] = name;
        return made;
    }

    static void Tap(cg::Point point) {
        sim::touch::Began(1, point);
        sim::clock::Advance(0.05);
        sim::touch::Ended(1, point);
        sim::clock::Drain();
    }

    static void Drag(cg::Point from, cg::Point to) {
        sim::touch::Began(1, from);
        sim::touch::Moved(1, {(from.x + to.x) / 2, (from.y + to.y) / 2});
        sim::touch::Moved(1, to);
        sim::touch::Ended(1, to);
        sim::clock::Drain();
    }

    corvel::test::Pool pool;
    ui::WindowScene scene;
    objc::Ref<Listener> listener;
    objc::Ref<ui::Window> window;
};

// Hit-testing.

TEST_F(UIKitTouch, HitsTheFrontMostViewUnderThePoint) {
    const auto back = AddView(window, {{0, 0}, {100, 100}});
    const auto front = AddView(window, {{50, 50}, {100, 100}});
    EXPECT_EQ(sim::HitTestScreen({20, 20}), back.get());
    EXPECT_EQ(sim::HitTestScreen({60, 60}), front.get());
    EXPECT_EQ(sim::HitTestScreen({300, 300}), window.get());
    window->bringSubviewToFront(back);
    EXPECT_EQ(sim::HitTestScreen({60, 60}), back.get());
}

TEST_F(UIKitTouch, EdgesBelongToTheViewOnTheirRight) {
    const auto view = AddView(window, {{10, 10}, {10, 10}});
    EXPECT_EQ(sim::HitTestScreen({10, 10}), view.get());
    EXPECT_EQ(sim::HitTestScreen({20, 15}), window.get());
    EXPECT_EQ(sim::HitTestScreen({15, 20}), window.get());
}

TEST_F(UIKitTouch, PassesOverViewsThatTakeNoTouch) {
    const auto back = AddView(window, {{0, 0}, {100, 100}});
    const auto front = AddView(window, {{0, 0}, {100, 100}});
    const auto inner = AddView(front, {{0, 0}, {100, 100}});
    ASSERT_EQ(sim::HitTestScreen({50, 50}), inner.get());
    front->setHidden(true);
    EXPECT_EQ(sim::HitTestScreen({50, 50}), back.get());
    front->setHidden(false);
    front->setAlpha(0.009);
    EXPECT_EQ(sim::HitTestScreen({50, 50}), back.get());
    front->setAlpha(0.02);
    EXPECT_EQ(sim::HitTestScreen({50, 50}), inner.get());
    objc::Send<"setUserInteractionEnabled:", void>(front.get(), false);
    EXPECT_EQ(sim::HitTestScreen({50, 50}), back.get());
}

TEST_F(UIKitTouch, SubviewsOutsideTheirSuperviewAreNotHitClippedOrNot) {
    const auto outer = AddView(window, {{0, 0}, {50, 50}});
    const auto inner = AddView(outer, {{40, 40}, {50, 50}});
    EXPECT_EQ(sim::HitTestScreen({45, 45}), inner.get());
    EXPECT_EQ(sim::HitTestScreen({70, 70}), window.get());
}

TEST_F(UIKitTouch, FollowsTransforms) {
    const auto view = AddView(window, {{100, 100}, {100, 100}});
    view->setTransform(cg::AffineTransform::Scale(0.5, 0.5));
    EXPECT_EQ(view->frame(), (cg::Rect{{125, 125}, {50, 50}}));
    EXPECT_EQ(sim::HitTestScreen({110, 110}), window.get());
    EXPECT_EQ(sim::HitTestScreen({130, 130}), view.get());
    const cg::AffineTransform quarterTurn{0, 1, -1, 0, 0, 0};
    view->setFrame({{100, 100}, {40, 40}});
    view->setTransform(quarterTurn);
    const auto corner = AddView(view, {{0, 0}, {10, 10}}); // the top left one, turned to the top right
    EXPECT_EQ(sim::HitTestScreen({view->center().x + 35, view->center().y - 35}), corner.get());
}

TEST_F(UIKitTouch, GoesThroughWindowsFromTheTopDown) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    const auto above = MakeWindow<PassingWindow>(10);
    const auto button = AddView(above, {{0, 0}, {20, 20}});
    EXPECT_EQ(sim::HitTestScreen({10, 10}), button.get());
    EXPECT_EQ(sim::HitTestScreen({50, 50}), view.get()); // that window declined
    const auto solid = MakeWindow<ui::Window>(5);
    EXPECT_EQ(sim::HitTestScreen({50, 50}), solid.get());
    solid->setHidden(true);
    EXPECT_EQ(sim::HitTestScreen({50, 50}), view.get());
    const auto later = MakeWindow<ui::Window>(0);
    EXPECT_EQ(sim::HitTestScreen({50, 50}), later.get()); // same level, shown later
}

TEST_F(UIKitTouch, ConvertsBetweenWindows) {
    const auto view = AddView(window, {{10, 20}, {100, 100}});
    const auto above = MakeWindow<ui::Window>(10);
    above->setFrame({{100, 0}, {100, 100}});
    const auto convert = [&](ui::View to) {
        return objc::Send<"convertPoint:toView:", cg::Point>(view.get(), cg::Point{1, 2}, to);
    };
    EXPECT_EQ(convert({}), (cg::Point{11, 22}));
    EXPECT_EQ(convert(window), (cg::Point{11, 22}));
    EXPECT_EQ(convert(above), (cg::Point{-89, 22}));
}

// Windows and scenes.

TEST_F(UIKitTouch, ScenesComeInTheOrderOfTheirConnection) {
    std::vector<ui::WindowScene> made{scene};
    for (int i = 0; i < 20; ++i) {
        made.push_back(sim::MakeWindowScene(static_cast<UISceneActivationState>(i % 3)));
    }
    const ns::Array listed = ui::Application::sharedApplication().connectedScenes().allObjects();
    ASSERT_EQ(listed.count(), made.size());
    for (unsigned long i = 0; i < made.size(); ++i) {
        EXPECT_EQ(listed.objectAtIndex(i), made[i]);
    }
    EXPECT_EQ(made[3].activationState(), UISceneActivationStateBackground);
    for (std::size_t i = 1; i < made.size(); ++i) {
        sim::DisconnectScene(made[i]);
    }
    EXPECT_EQ(ui::Application::sharedApplication().connectedScenes().count(), 1UL);
}

TEST_F(UIKitTouch, KeyStatusFallsToTheTopMostWindowBelow) {
    EXPECT_TRUE(window->isKeyWindow());
    const auto middle = MakeWindow<ui::Window>(10);
    const auto top = MakeWindow<ui::Window>(20);
    window->makeKeyWindow();
    top->makeKeyWindow();
    EXPECT_FALSE(window->isKeyWindow());
    top->setHidden(true);
    EXPECT_EQ(scene.keyWindow(), middle.get()); // although another had it before
    middle->setHidden(true);
    EXPECT_EQ(scene.keyWindow(), window.get());
    EXPECT_EQ(scene.windows().count(), 3UL);
    EXPECT_EQ(scene.windows().firstObject(), window.get());
    top->setHidden(false);
    EXPECT_TRUE(window->isKeyWindow());
    window->setHidden(true); // the lowest of all
    EXPECT_EQ(scene.keyWindow(), top.get());
}

TEST_F(UIKitTouch, ATouchMakesItsWindowKeyUnlessThatRefuses) {
    const auto passing = MakeWindow<PassingWindow>(10);
    const auto view = AddView(passing, {{0, 0}, {20, 20}});
    window->makeKeyWindow();
    sim::touch::Began(1, {50, 50});
    EXPECT_TRUE(window->isKeyWindow()); // that window let it through
    sim::touch::Began(2, {10, 10});
    EXPECT_TRUE(passing->isKeyWindow());
    sim::touch::Moved(1, {60, 60});
    EXPECT_TRUE(passing->isKeyWindow()); // only a landing counts
    sim::touch::Cancelled(1);
    sim::touch::Cancelled(2);
    const auto modest = MakeWindow<ModestWindow>(20);
    EXPECT_TRUE(passing->isKeyWindow());
    Tap({50, 50});
    EXPECT_TRUE(passing->isKeyWindow());
}

TEST_F(UIKitTouch, AWindowThatIsReleasedPassesKeyStatusOn) {
    {
        const corvel::test::Pool inner;
        const auto above = MakeWindow<ui::Window>(10);
        EXPECT_TRUE(above->isKeyWindow());
    }
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_EQ(sim::HitTestScreen({5, 5}), window.get());
}

TEST_F(UIKitTouch, WindowsAreHiddenUntilMadeVisibleAndGoWithTheirOwner) {
    {
        const corvel::test::Pool inner; // arrays of windows keep them
        const auto made = objc::Ref<ui::Window>::Adopt(ns::Alloc<ui::Window>().initWithWindowScene(scene));
        made->setWindowLevel(50);
        EXPECT_EQ(sim::HitTestScreen({5, 5}), window.get());
        EXPECT_EQ(scene.windows().count(), 2UL);
    }
    EXPECT_EQ(scene.windows().count(), 1UL);
}

// Recognisers.

TEST_F(UIKitTouch, TapIsRecognisedWhenTheFingerLifts) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    const auto tap = AddRecognizer<ui::TapGestureRecognizer>(view, "tap");
    sim::touch::Began(1, {50, 50});
    EXPECT_EQ(Heard(), Lines{});
    sim::touch::Ended(1, {50, 50});
    EXPECT_EQ(Heard(), Lines{"tap ended"});
    EXPECT_EQ(tap.state(), UIGestureRecognizerStatePossible);
    Tap({50, 50});
    EXPECT_EQ(Heard(), (Lines{"tap ended", "tap ended"}));
    Drag({10, 50}, {90, 50});
    EXPECT_EQ(Heard().size(), 2U);
}

TEST_F(UIKitTouch, DoubleTapNeedsTwoInTime) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    const auto tap = AddRecognizer<ui::TapGestureRecognizer>(view, "double");
    objc::Send<"setNumberOfTapsRequired:", void>(tap, 2UL);
    Tap({50, 50});
    sim::clock::Advance(0.5);
    Tap({50, 50});
    EXPECT_EQ(Heard(), Lines{});
    Tap({50, 50});
    EXPECT_EQ(Heard(), Lines{"double ended"});
}

TEST_F(UIKitTouch, LongPressBeginsAfterHalfASecond) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    AddRecognizer<ui::LongPressGestureRecognizer>(view, "press");
    sim::touch::Began(1, {50, 50});
    sim::touch::Moved(1, {50, 60});
    sim::clock::Advance(0.499);
    EXPECT_EQ(Heard(), Lines{});
    sim::clock::Advance(0.001);
    EXPECT_EQ(Heard(), Lines{"press began"});
    sim::touch::Moved(1, {80, 80});
    sim::touch::Ended(1, {80, 80});
    EXPECT_EQ(Heard(), (Lines{"press began", "press changed", "press ended"}));
    sim::clock::Advance(1);
    EXPECT_EQ(Heard().size(), 3U);
}

TEST_F(UIKitTouch, LongPressFailsWhenTheFingerStraysOrLiftsEarly) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    AddRecognizer<ui::LongPressGestureRecognizer>(view, "press");
    sim::touch::Began(1, {50, 50});
    sim::touch::Moved(1, {50, 60.5});
    sim::clock::Advance(1);
    sim::touch::Ended(1, {50, 60.5});
    sim::touch::Began(1, {50, 50});
    sim::clock::Advance(0.4);
    sim::touch::Ended(1, {50, 50});
    sim::clock::Advance(1);
    EXPECT_EQ(Heard(), Lines{});
}

TEST_F(UIKitTouch, CancelledTouchesCancelWhatHasBegunAndFailWhatHasNot) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    AddRecognizer<ui::LongPressGestureRecognizer>(view, "press");
    AddRecognizer<ui::TapGestureRecognizer>(view, "tap");
    sim::touch::Began(1, {50, 50});
    sim::touch::Cancelled(1);
    EXPECT_EQ(Heard(), Lines{});
    sim::touch::Began(1, {50, 50});
    sim::clock::Advance(0.5);
    sim::touch::Cancelled(1);
    EXPECT_EQ(Heard(), (Lines{"press began", "press cancelled"}));
}

TEST_F(UIKitTouch, PanBeginsPastItsSlopAndKeepsTheWholeWay) {
    const auto view = AddView(window, {{0, 0}, {300, 300}});
    const auto pan = AddRecognizer<ui::PanGestureRecognizer>(view, "pan");
    sim::touch::Began(1, {50, 50});
    sim::touch::Moved(1, {59, 50});
    EXPECT_EQ(Heard(), Lines{});
    sim::touch::Moved(1, {62, 50});
    EXPECT_EQ(Heard(), Lines{"pan began"});
    EXPECT_EQ(pan.translationInView(window), (cg::Point{12, 0}));
    pan.setTranslation({}, window);
    sim::touch::Moved(1, {70, 55});
    EXPECT_EQ(pan.translationInView(window), (cg::Point{8, 5}));
    EXPECT_EQ(LocationIn(pan, view), (cg::Point{70, 55}));
    sim::touch::Ended(1, {70, 55});
    EXPECT_EQ(Heard(), (Lines{"pan began", "pan changed", "pan ended"}));
    EXPECT_EQ(pan.translationInView(window), cg::Point{});
}

TEST_F(UIKitTouch, PanTranslatesIntoTheViewsCoordinates) {
    const auto view = AddView(window, {{0, 0}, {300, 300}});
    const auto pan = AddRecognizer<ui::PanGestureRecognizer>(view, "pan");
    view->setTransform(cg::AffineTransform::Scale(0.5, 0.5));
    sim::touch::Began(1, {150, 150});
    sim::touch::Moved(1, {170, 150});
    EXPECT_EQ(pan.translationInView(window), (cg::Point{20, 0}));
    EXPECT_EQ(pan.translationInView(view), (cg::Point{40, 0}));
    pan.setTranslation({10, 0}, view);
    EXPECT_EQ(pan.translationInView(window), (cg::Point{5, 0}));
    sim::touch::Ended(1, {170, 150});
}

TEST_F(UIKitTouch, TwoFingersPanByTheirMiddle) {
    const auto view = AddView(window, {{0, 0}, {300, 300}});
    const auto pan = AddRecognizer<ui::PanGestureRecognizer>(view, "pan");
    sim::touch::Began(1, {50, 50});
    sim::touch::Began(2, {150, 50});
    sim::touch::Moved(1, {80, 50});
    EXPECT_EQ(pan.translationInView(window), (cg::Point{15, 0}));
    EXPECT_EQ(NumberOfTouches(pan), 2UL);
    sim::touch::Ended(1, {80, 50});
    EXPECT_EQ(Heard(), Lines{"pan began"});
    sim::touch::Ended(2, {150, 50});
    EXPECT_EQ(Heard(), (Lines{"pan began", "pan ended"}));
}

TEST_F(UIKitTouch, VelocityIsWayByTime) {
    const auto view = AddView(window, {{0, 0}, {300, 300}});
    const auto pan = AddRecognizer<ui::PanGestureRecognizer>(view, "pan");
    sim::touch::Began(1, {50, 50});
    sim::clock::Advance(0.05);
    sim::touch::Moved(1, {60, 40});
    const auto velocity = objc::Send<"velocityInView:", cg::Point>(pan, window.get());
    EXPECT_NEAR(velocity.x, 200, 1e-6);
    EXPECT_NEAR(velocity.y, -200, 1e-6);
    sim::touch::Ended(1, {60, 40});
}

TEST_F(UIKitTouch, ClassObjectsAreTargetsToo) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    const ns::Object cls{objc::AsObject(objc::ClassOf<Listener>())};
    const auto tap = objc::Ref<ui::TapGestureRecognizer>::Adopt(ui::TapGestureRecognizer{
        ns::Alloc<ui::TapGestureRecognizer>().initWithTarget(cls, objc::Selector<"gesture:">()).pointer});
    view->addGestureRecognizer(tap);
    Names()[tap.get().pointer] = "class tap";
    Tap({50, 50});
    EXPECT_EQ(Heard(), Lines{"class tap ended"});
    const ui::Button button = ui::Button::buttonWithType(UIButtonTypeCustom);
    button.setFrame({{0, 200}, {50, 50}});
    button.addTarget(cls, objc::Selector<"upInside:">(), UIControlEventTouchUpInside);
    window->addSubview(button);
    Tap({20, 220});
    EXPECT_EQ(Heard(), (Lines{"class tap ended", "up inside"}));
}

TEST_F(UIKitTouch, SystemButtonsFadeUnderAFinger) {
    for (const UIButtonType type : {UIButtonTypeSystem, UIButtonTypeCustom}) {
        const ui::Button button = ui::Button::buttonWithType(type);
        button.setFrame({{0, 200}, {100, 50}});
        button.setTitle("title"_ns, UIControlStateNormal);
        window->addSubview(button);
        const double pressed = type == UIButtonTypeSystem ? 0.2 : 1;
        sim::touch::Began(1, {20, 220});
        EXPECT_NEAR(button.titleLabel().alpha(), pressed, 1e-6);
        sim::touch::Moved(1, {20, 20});
        EXPECT_EQ(button.titleLabel().alpha(), 1) << "far away from it";
        sim::touch::Moved(1, {20, 230});
        EXPECT_NEAR(button.titleLabel().alpha(), pressed, 1e-6);
        sim::touch::Ended(1, {20, 230});
        EXPECT_EQ(button.titleLabel().alpha(), 1);
        button.removeFromSuperview();
    }
}

TEST_F(UIKitTouch, SwitchesAndSegmentsShowTheFinger) {
    const auto toggle = ui::MakeView<ui::Switch>({{0, 0}, {51, 31}});
    const auto titles = ns::MutableArray::array();
    titles.addObject("One"_ns);
    titles.addObject("Two"_ns);
    const auto segments = objc::Ref<ui::SegmentedControl>::Adopt(
        ui::SegmentedControl{ns::Alloc<ui::SegmentedControl>()}.initWithItems(titles));
    segments->setFrame({{0, 100}, {200, 31}});
    segments->setSelectedSegmentIndex(0);
    window->addSubview(toggle);
    window->addSubview(segments);
    const auto knob = [](ui::View view) {
        const corvel::test::Picture picture(view, 200, 140);
        return picture.Where([](std::uint32_t pixel) { return pixel == 0xFFFFFFFF; }).width;
    };
    const auto ink = [&] { // where the titles' last letter is; black
        const corvel::test::Picture picture(segments, 200, 140);
        const auto dark =
            picture.Where([](std::uint32_t pixel) { return pixel >> 24 > 0xC0 && (pixel & 0xFF) < 0x60; });
        return dark.x + dark.width;
    };
    const int knobAtRest = knob(toggle);
    sim::touch::Began(1, {20, 15});
    EXPECT_GT(knob(toggle), knobAtRest + 4);
    sim::touch::Ended(1, {20, 15});
    EXPECT_EQ(knob(toggle), knobAtRest);

    const int selectionAtRest = knob(segments);
    EXPECT_GT(ink(), 100);
    sim::touch::Began(1, {150, 115});
    EXPECT_LT(ink(), 100) << "the title under the finger is pale";
    EXPECT_EQ(knob(segments), selectionAtRest);
    sim::touch::Moved(1, {50, 115});
    EXPECT_GT(ink(), 100);
    EXPECT_LT(knob(segments), selectionAtRest);
    sim::touch::Moved(1, {50, 20});
    EXPECT_EQ(knob(segments), selectionAtRest) << "far away from it";
    sim::touch::Ended(1, {50, 20});
    EXPECT_EQ(segments->selectedSegmentIndex(), 0);
}

TEST_F(UIKitTouch, TargetsAreNotRetainedAndMayBeGone) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    AddRecognizer<ui::TapGestureRecognizer>(view, "tap");
    AddButton(window, {{0, 200}, {50, 50}});
    listener = nullptr;
    Tap({50, 50});
    Tap({20, 220});
    EXPECT_EQ(Heard(), Lines{});
}

TEST_F(UIKitTouch, DelegateDecides) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    const auto tap = AddRecognizer<ui::TapGestureRecognizer>(view, "tap");
    tap.setValue(listener.get(), "delegate"_ns);
    g_delegateReceives = false;
    Tap({50, 50});
    g_delegateReceives = true;
    g_delegateBegins = false;
    Tap({50, 50});
    EXPECT_EQ(Heard(), Lines{});
    g_delegateBegins = true;
    Tap({50, 50});
    EXPECT_EQ(Heard(), Lines{"tap ended"});
}

TEST_F(UIKitTouch, DisablingARecogniserCancelsItsGesture) {
    const auto view = AddView(window, {{0, 0}, {300, 300}});
    const auto pan = AddRecognizer<ui::PanGestureRecognizer>(view, "pan");
    sim::touch::Began(1, {50, 50});
    sim::touch::Moved(1, {90, 50});
    objc::Send<"setEnabled:", void>(pan, false);
    sim::clock::Drain();
    EXPECT_EQ(Heard(), (Lines{"pan began", "pan cancelled"}));
    sim::touch::Ended(1, {90, 50});
    Drag({50, 50}, {200, 200});
    EXPECT_EQ(Heard().size(), 2U);
}

// One gesture excludes others.

TEST_F(UIKitTouch, InnerTapExcludesOuterTap) {
    const auto outer = AddView(window, {{0, 0}, {200, 200}});
    const auto inner = AddView(outer, {{0, 0}, {100, 100}});
    AddRecognizer<ui::TapGestureRecognizer>(outer, "outer");
    AddRecognizer<ui::TapGestureRecognizer>(inner, "inner");
    Tap({50, 50});
    EXPECT_EQ(Heard(), Lines{"inner ended"});
    Tap({150, 150});
    EXPECT_EQ(Heard(), (Lines{"inner ended", "outer ended"}));
}

TEST_F(UIKitTouch, SimultaneousWhenADelegateAllowsIt) {
    const auto outer = AddView(window, {{0, 0}, {200, 200}});
    const auto inner = AddView(outer, {{0, 0}, {100, 100}});
    const auto tap = AddRecognizer<ui::TapGestureRecognizer>(outer, "outer");
    AddRecognizer<ui::TapGestureRecognizer>(inner, "inner");
    tap.setValue(listener.get(), "delegate"_ns);
    g_delegateSimultaneous = true;
    Tap({50, 50});
    EXPECT_EQ(Heard(), (Lines{"inner ended", "outer ended"}));
}

TEST_F(UIKitTouch, WhatIsRecognisedFirstExcludesTheRest) {
    const auto view = AddView(window, {{0, 0}, {300, 300}});
    AddRecognizer<ui::LongPressGestureRecognizer>(view, "press");
    AddRecognizer<ui::PanGestureRecognizer>(view, "pan");
    AddRecognizer<ui::TapGestureRecognizer>(view, "tap");
    sim::touch::Began(1, {50, 50});
    sim::clock::Advance(0.5);
    sim::touch::Moved(1, {150, 150});
    sim::touch::Ended(1, {150, 150});
    EXPECT_EQ(Heard(), (Lines{"press began", "press changed", "press ended"}));
    Heard().clear();
    sim::touch::Began(1, {50, 50});
    sim::touch::Moved(1, {70, 50});
    sim::clock::Advance(1);
    sim::touch::Ended(1, {70, 50});
    EXPECT_EQ(Heard(), (Lines{"pan began", "pan ended"}));
}

TEST_F(UIKitTouch, FingersOnDifferentViewsMakeGesturesOfTheirOwn) {
    const auto left = AddView(window, {{0, 0}, {100, 100}});
    const auto right = AddView(window, {{100, 0}, {100, 100}});
    AddRecognizer<ui::LongPressGestureRecognizer>(left, "left");
    AddRecognizer<ui::TapGestureRecognizer>(right, "right");
    sim::touch::Began(1, {50, 50});
    sim::clock::Advance(0.5);
    sim::touch::Began(2, {150, 50});
    sim::touch::Ended(2, {150, 50});
    sim::touch::Ended(1, {50, 50});
    EXPECT_EQ(Heard(), (Lines{"left began", "right ended", "left ended"}));
}

// Controls.

TEST_F(UIKitTouch, ButtonFollowsTheFinger) {
    const ui::Button button = AddButton(window, {{100, 100}, {50, 50}});
    Tap({120, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "up inside"}));
    Heard().clear();
    sim::touch::Began(1, {120, 120});
    sim::touch::Moved(1, {219, 120}); // 69 points outside
    EXPECT_TRUE(IsHighlighted(button));
    sim::touch::Moved(1, {221, 120});
    EXPECT_FALSE(IsHighlighted(button));
    sim::touch::Moved(1, {120, 120});
    sim::touch::Moved(1, {300, 120});
    sim::touch::Ended(1, {300, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "exit", "enter", "exit", "up outside"}));
}

TEST_F(UIKitTouch, DisabledButtonSwallowsTheTouch) {
    const auto back = AddView(window, {{0, 0}, {300, 300}});
    AddRecognizer<ui::LongPressGestureRecognizer>(back, "back");
    const ui::Button button = AddButton(window, {{100, 100}, {50, 50}});
    objc::Send<"setEnabled:", void>(button, false);
    EXPECT_EQ(sim::HitTestScreen({120, 120}), button);
    Tap({120, 120});
    EXPECT_EQ(Heard(), Lines{});
}

TEST_F(UIKitTouch, ButtonKeepsItsTapFromTheRecogniserAroundIt) {
    const auto panel = AddView(window, {{0, 0}, {300, 300}});
    const auto tap = AddRecognizer<ui::TapGestureRecognizer>(panel, "tap");
    AddButton(panel, {{100, 100}, {50, 50}});
    Tap({120, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "up inside"}));
    tap.setCancelsTouchesInView(false);
    Tap({120, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "up inside", "down", "up inside"}));
    Tap({20, 20});
    EXPECT_EQ(Heard().back(), "tap ended");
}

TEST_F(UIKitTouch, RecogniserOnTheButtonItselfTakesItsTouch) {
    const ui::Button button = AddButton(window, {{100, 100}, {50, 50}});
    const auto tap = AddRecognizer<ui::TapGestureRecognizer>(button, "tap");
    Tap({120, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "tap ended", "cancel"}));
    Heard().clear();
    tap.setCancelsTouchesInView(false);
    Tap({120, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "tap ended", "up inside"}));
}

TEST_F(UIKitTouch, PanAndLongPressCancelTheButtonsTouch) {
    const auto panel = AddView(window, {{0, 0}, {300, 300}});
    const auto pan = AddRecognizer<ui::PanGestureRecognizer>(panel, "pan");
    const ui::Button button = AddButton(panel, {{100, 100}, {50, 50}});
    AddRecognizer<ui::LongPressGestureRecognizer>(button, "press");
    Drag({120, 120}, {140, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "pan began", "cancel", "pan changed", "pan ended"}));
    EXPECT_FALSE(IsHighlighted(button));
    Heard().clear();
    sim::touch::Began(1, {120, 120});
    sim::clock::Advance(0.5);
    sim::touch::Ended(1, {120, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "press began", "cancel", "press ended"}));
    Heard().clear();
    pan.setCancelsTouchesInView(false);
    Drag({120, 120}, {140, 120});
    EXPECT_EQ(Heard(), (Lines{"down", "pan began", "pan changed", "pan ended", "up inside"}));
}

TEST_F(UIKitTouch, RemovedButtonIsToldThatItsTouchIsOver) {
    const ui::Button button = AddButton(window, {{100, 100}, {50, 50}});
    sim::touch::Began(1, {120, 120});
    button.removeFromSuperview();
    EXPECT_EQ(Heard(), (Lines{"down", "cancel"}));
    sim::touch::Ended(1, {120, 120});
    EXPECT_EQ(Heard().size(), 2U);
}

TEST_F(UIKitTouch, RemovedTargetHearsNothing) {
    const ui::Button button = AddButton(window, {{100, 100}, {50, 50}});
    objc::Send<"removeTarget:action:forControlEvents:", void>(objc::As<ui::Control>(button), ns::Object{listener.get()},
                                                              objc::SEL{}, 0xffffffffUL);
    Tap({120, 120});
    EXPECT_EQ(Heard(), Lines{});
}

TEST_F(UIKitTouch, ActionsCanBeSentByHand) {
    const ui::Button button = AddButton(window, {{100, 100}, {50, 50}});
    objc::Send<"sendActionsForControlEvents:", void>(objc::As<ui::Control>(button), UIControlEventTouchUpInside);
    EXPECT_EQ(Heard(), Lines{"up inside"});
}

TEST_F(UIKitTouch, ButtonCentresItsTitle) {
    const ui::Button button = AddButton(window, {{100, 100}, {200, 50}});
    button.setTitle("OK"_ns, UIControlStateNormal);
    sim::clock::Drain();
    const ui::Label label = button.titleLabel();
    const cg::Rect frame = label.frame();
    EXPECT_TRUE(label.text().isEqualToString("OK"_ns));
    EXPECT_GT(frame.size.width, 0);
    EXPECT_NEAR(frame.origin.x + frame.size.width / 2, 100, 0.5);
    EXPECT_NEAR(frame.origin.y + frame.size.height / 2, 25, 0.5);
    button.setTitle("a title far too long for two hundred points of room"_ns, UIControlStateNormal);
    sim::clock::Drain();
    EXPECT_LE(label.frame().size.width, 200);
}

// Animations.

class UIKitAnimation : public UIKitTouch {
  protected:
    UIKitAnimation() : view(AddView(window, {{0, 0}, {100, 100}})) {}
    ~UIKitAnimation() noexcept override = default;

    static auto Note(const char *name) {
        return objc::MakeBlock<void(bool)>(
            [name](bool finished) { Heard().push_back(std::string(name) + (finished ? " YES" : " NO")); });
    }
    /// Animates the view's alpha.
    void Fade(double to, double duration, const char *name) const {
        const ui::View faded = view;
        ui::View::animateWithDuration(duration, objc::MakeBlock<void()>([faded, to] { faded.setAlpha(to); }),
                                      Note(name));
    }

    objc::Ref<ui::View> view;
};

TEST_F(UIKitAnimation, CompletesWhenItsTimeIsOver) {
    Fade(0, 0.2, "fade");
    EXPECT_EQ(view->alpha(), 0); // the model's value holds at once
    EXPECT_EQ(sim::PresentedValues(view).alpha, 1);
    sim::clock::Advance(0.1);
    EXPECT_NEAR(sim::PresentedValues(view).alpha, 0.5, 1e-6); // ease in and out is symmetric
    sim::clock::Advance(0.0999);
    EXPECT_EQ(Heard(), Lines{});
    sim::clock::Advance(0.0001);
    EXPECT_EQ(Heard(), Lines{"fade YES"});
    EXPECT_EQ(sim::PresentedValues(view).alpha, 0);
}

TEST_F(UIKitAnimation, StartsSlowlyAndEndsSlowly) {
    Fade(0, 1, "fade");
    sim::clock::Advance(0.1);
    EXPECT_GT(sim::PresentedValues(view).alpha, 0.95);
    sim::clock::Advance(0.8);
    EXPECT_LT(sim::PresentedValues(view).alpha, 0.05);
}

TEST_F(UIKitAnimation, WithNothingToDoItCompletesInTheNextTurn) {
    Fade(1, 0.2, "same");
    EXPECT_EQ(Heard(), Lines{});
    sim::clock::Drain();
    EXPECT_EQ(Heard(), Lines{"same YES"});
}

TEST_F(UIKitAnimation, OutsideAWindowNothingIsAnimated) {
    view->removeFromSuperview();
    Fade(0.5, 0.2, "unseen");
    sim::clock::Drain();
    EXPECT_EQ(Heard(), Lines{"unseen YES"});
    EXPECT_EQ(sim::PresentedValues(view).alpha, 0.5);
}

TEST_F(UIKitAnimation, RemovalEndsItUnfinished) {
    Fade(0, 0.2, "fade");
    sim::clock::Advance(0.1);
    view->removeFromSuperview();
    EXPECT_EQ(Heard(), Lines{});
    sim::clock::Drain();
    EXPECT_EQ(Heard(), Lines{"fade NO"});
    sim::clock::Advance(1);
    EXPECT_EQ(Heard().size(), 1U);
}

TEST_F(UIKitAnimation, ALaterOneAddsToTheEarlier) {
    Fade(0, 0.2, "out");
    sim::clock::Advance(0.1);
    Fade(1, 0.2, "in");
    EXPECT_NEAR(sim::PresentedValues(view).alpha, 0.5, 1e-6); // no jump
    sim::clock::Advance(0.1);
    EXPECT_EQ(Heard(), Lines{"out YES"});
    sim::clock::Advance(0.1);
    EXPECT_EQ(Heard(), (Lines{"out YES", "in YES"}));
    EXPECT_EQ(sim::PresentedValues(view).alpha, 1);
}

TEST_F(UIKitAnimation, SpringOvershootsAndComesToRest) {
    const ui::View moved = view;
    ui::View::animateWithDuration(0.3, 0.1, 0.6, 0.5, 0,
                                  objc::MakeBlock<void()>([moved] { moved.setCenter({150, 50}); }), Note("spring"));
    sim::clock::Advance(0.1);
    EXPECT_EQ(sim::PresentedValues(view).center.x, 50); // the delay
    double furthest = 0;
    for (int i = 0; i < 29; ++i) {
        sim::clock::Advance(0.01);
        furthest = std::max(furthest, sim::PresentedValues(view).center.x);
    }
    // A spring of damping ratio 0.6 overshoots by exp(-0.6 pi / 0.8) when it starts from rest; more with a push.
    EXPECT_GT(furthest, 150 + 100 * 0.09);
    EXPECT_LT(furthest, 150 + 100 * 0.13);
    EXPECT_NEAR(sim::PresentedValues(view).center.x, 150, 0.2);
    EXPECT_EQ(Heard(), Lines{});
    sim::clock::Advance(0.01);
    EXPECT_EQ(Heard(), Lines{"spring YES"});
    EXPECT_EQ(sim::PresentedValues(view).center.x, 150);
}

TEST_F(UIKitAnimation, MovingViewsTakeNoTouchUnlessAllowed) {
    Fade(0.5, 0.2, "fade");
    EXPECT_EQ(sim::HitTestScreen({50, 50}), window.get());
    sim::clock::Advance(0.2);
    EXPECT_EQ(sim::HitTestScreen({50, 50}), view.get());
    sim::Animate({.duration = 0.2, .options = UIViewAnimationOptionAllowUserInteraction}, [this] { view->setAlpha(1); },
                 {});
    EXPECT_EQ(sim::HitTestScreen({50, 50}), view.get());
}

// View controllers.

class UIKitPresentation : public UIKitTouch {
  protected:
    UIKitPresentation() {
        host = ns::New<ui::ViewController>();
        window->setRootViewController(host);
    }
    ~UIKitPresentation() noexcept override = default;

    static void Present(ui::ViewController presenter, ui::ViewController controller, bool animated) {
        objc::Send<"presentViewController:animated:completion:", void>(
            presenter, controller, animated,
            objc::Block<void()>(objc::MakeBlock<void()>([] { Heard().emplace_back("presented"); })));
    }
    static void Dismiss(ui::ViewController controller, bool animated) {
        objc::Send<"dismissViewControllerAnimated:completion:", void>(
            controller, animated,
            objc::Block<void()>(objc::MakeBlock<void()>([] { Heard().emplace_back("dismissed"); })));
    }
    static ui::ViewController Presented(ui::ViewController controller) {
        return objc::Send<"presentedViewController", ui::ViewController>(controller);
    }

    objc::Ref<ui::ViewController> host;
};

TEST_F(UIKitPresentation, RootViewFillsTheWindowBehindAllElse) {
    const auto view = AddView(window, {});
    EXPECT_EQ(window->subviews().firstObject(), host->view());
    EXPECT_EQ(host->view().frame(), (cg::Rect{{0, 0}, sim::ScreenSize()}));
    window->setFrame({{0, 0}, {200, 300}});
    EXPECT_EQ(host->view().frame(), (cg::Rect{{0, 0}, {200, 300}}));
}

TEST_F(UIKitPresentation, PresentsInFrontAndGoesAgain) {
    const auto sheet = ns::New<ui::ViewController>();
    Present(host, sheet, true);
    EXPECT_EQ(Presented(host), sheet.get());
    EXPECT_EQ(Heard(), Lines{});
    sim::clock::Advance(1);
    EXPECT_EQ(Heard(), Lines{"presented"});
    EXPECT_EQ(sim::HitTestScreen({200, 600}), sheet->view());
    Dismiss(sheet, true);
    EXPECT_EQ(Presented(host), sheet.get()); // until it is gone from sight
    sim::clock::Advance(1);
    EXPECT_EQ(Heard(), (Lines{"presented", "dismissed"}));
    EXPECT_EQ(Presented(host), ui::ViewController{});
    EXPECT_EQ(sim::HitTestScreen({200, 600}), host->view());
}

TEST_F(UIKitPresentation, OnePresenterPresentsOneAndNoneWithoutAWindow) {
    const auto first = ns::New<ui::ViewController>();
    const auto second = ns::New<ui::ViewController>();
    Present(second, first, false);
    EXPECT_EQ(Presented(second), ui::ViewController{});
    Present(host, first, false);
    Present(host, second, false);
    sim::clock::Drain();
    EXPECT_EQ(Presented(host), first.get());
    EXPECT_EQ(Heard(), Lines{"presented"});
    Present(first, second, false);
    EXPECT_EQ(Presented(first), second.get());
    Dismiss(host, false); // takes both
    EXPECT_EQ(Presented(host), ui::ViewController{});
    EXPECT_EQ(Presented(first), ui::ViewController{});
    EXPECT_EQ(window->subviews().count(), 1UL);
}

// Views.

TEST_F(UIKitTouch, FramesThatAreNotFiniteRaise) {
    const auto view = AddView(window, {{0, 0}, {100, 100}});
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(objc::Guard([&] { view->setFrame({{0, 0}, {kNaN, 10}}); }));
    EXPECT_FALSE(objc::Guard([&] { view->setFrame({{0, kInfinity}, {10, 10}}); }));
    EXPECT_FALSE(objc::Guard([&] { view->setCenter({kNaN, 0}); }));
    EXPECT_EQ(view->frame(), (cg::Rect{{0, 0}, {100, 100}}));
}

TEST_F(UIKitTouch, SubviewsKeepTheirPlaces) {
    const auto a = AddView(window, {});
    const auto b = AddView(window, {});
    const auto c = AddView(window, {});
    const auto order = [&] {
        std::string text;
        const ns::Array subviews = window->subviews();
        for (unsigned long i = 0; i < subviews.count(); ++i) {
            const ns::Object view = subviews.objectAtIndex(i);
            text += view == a.get() ? 'a' : (view == b.get() ? 'b' : 'c');
        }
        return text;
    };
    EXPECT_EQ(order(), "abc");
    window->bringSubviewToFront(a);
    EXPECT_EQ(order(), "bca");
    objc::Send<"sendSubviewToBack:", void>(ui::View{window.get()}, c.get());
    EXPECT_EQ(order(), "cba");
    objc::Send<"insertSubview:aboveSubview:", void>(ui::View{window.get()}, c.get(), b.get());
    EXPECT_EQ(order(), "bca");
    objc::Send<"insertSubview:belowSubview:", void>(ui::View{window.get()}, a.get(), b.get());
    EXPECT_EQ(order(), "abc");
    objc::Send<"insertSubview:atIndex:", void>(ui::View{window.get()}, c.get(), 1L);
    EXPECT_EQ(order(), "acb");
    EXPECT_FALSE(objc::Guard([&] { a->addSubview(a); }));
    a->addSubview(b);
    EXPECT_EQ(order(), "ac");
    EXPECT_FALSE(objc::Guard([&] { b->addSubview(a); }));
}

} // namespace
