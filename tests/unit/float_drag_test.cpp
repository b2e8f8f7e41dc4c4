// Dragging the float button: the callbacks on the way cost no memory and no write of preferences.

#include "overlay/float_drag.hpp"

#include "overlay/state.hpp"
#include "preferences/preferences.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

thread_local constinit bool counting = false;
thread_local constinit int allocations = 0;

void CountAllocation() {
    if (counting) {
        ++allocations;
    }
}

} // namespace

#if __has_feature(address_sanitizer)
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void *, std::size_t),
                                                         void (*freed)(const volatile void *));
namespace {
[[maybe_unused]] const int kInstalled = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void *, std::size_t) { CountAllocation(); }, [](const volatile void *) {});
} // namespace
#else
// The C library's own functions, on the same heap, with a count before.
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t nmemb, std::size_t size);
void *__libc_realloc(void *ptr, std::size_t size);

void *malloc(std::size_t size) {
    CountAllocation();
    return __libc_malloc(size);
}
void *calloc(std::size_t nmemb, std::size_t size) {
    CountAllocation();
    return __libc_calloc(nmemb, size);
}
void *realloc(void *ptr, std::size_t size) {
    CountAllocation();
    return __libc_realloc(ptr, size);
}
}
#endif

namespace {

using namespace corvel;
using namespace corvel::test;

/// What the stand-ins below keep; UIKit's own memory is not what is counted here.
struct Moved {
    cg::Point center{100, 200};
    cg::Point translation;
    UIGestureRecognizerState state = UIGestureRecognizerStateChanged;
};
constinit Moved moved;

cg::Point Center(ns::Object, objc::SEL) {
    return moved.center;
}
void SetCenter(ns::Object, objc::SEL, cg::Point center) {
    moved.center = center;
}
ns::Object Itself(ns::Object self, objc::SEL) {
    return self;
}
cg::Point Translation(ns::Object, objc::SEL, ns::Object) {
    return moved.translation;
}
void SetTranslation(ns::Object, objc::SEL, cg::Point translation, ns::Object) {
    moved.translation = translation;
}
UIGestureRecognizerState State(ns::Object, objc::SEL) {
    return moved.state;
}

/// The capture button, which only follows.
constinit cg::Point followed;

void SetFollowed(ns::Object, objc::SEL, cg::Point center) {
    followed = center;
}

objc::Ref<ns::Object> Follower() {
    static const objc::Class cls = [] {
        const objc::MethodEntry methods[] = {objc::MethodNamed<"setCenter:", &SetFollowed>()};
        return RegisterClass("CorvelTestFollower", "NSObject", methods);
    }();
    return NewInstance(cls);
}

objc::Ref<ns::Object> StandIn() {
    static const objc::Class cls = [] {
        const objc::MethodEntry methods[] = {objc::MethodNamed<"center", &Center>(),
                                             objc::MethodNamed<"setCenter:", &SetCenter>(),
                                             objc::MethodNamed<"superview", &Itself>(),
                                             objc::MethodNamed<"view", &Itself>(),
                                             objc::MethodNamed<"translationInView:", &Translation>(),
                                             objc::MethodNamed<"setTranslation:inView:", &SetTranslation>(),
                                             objc::MethodNamed<"state", &State>()};
        return RegisterClass("CorvelTestDragged", "NSObject", methods);
    }();
    return NewInstance(cls);
}

void DragTo(ui::PanGestureRecognizer recognizer, cg::Point translation) {
    moved.translation = translation;
    HandleFloatDrag(nullptr, nullptr, recognizer);
}

TEST(FloatDrag, OnTheWayAllocatesAndStoresNothing) {
    const Pool pool;
    ns::UserDefaults::standardUserDefaults().removeObjectForKey(kFloatButtonX.key());
    const objc::Ref<ns::Object> view = StandIn();
    Overlay().floatButton = objc::As<ui::Button>(view);
    Overlay().captureButton = objc::As<ui::Button>(Follower());
    const auto recognizer = objc::As<ui::PanGestureRecognizer>(view);
    DragTo(recognizer, {1, 2}); // selectors are registered and implementations found at the first send
    counting = true;
    void *volatile probe = std::malloc(1);
    const int seen = allocations;
    for (int i = 0; i < 1000; ++i) {
        DragTo(recognizer, {0.5, -0.25});
    }
    counting = false;
    std::free(probe);
    Overlay().floatButton = nullptr;
    Overlay().captureButton = nullptr;
    EXPECT_EQ(seen, 1) << "allocations are not counted at all";
    EXPECT_EQ(allocations, seen);
    EXPECT_EQ(moved.center, (cg::Point{601, -48}));
    EXPECT_EQ(followed, (cg::Point{601, 12}));
    EXPECT_FALSE(ns::UserDefaults::standardUserDefaults().objectForKey(kFloatButtonX.key()));
}

} // namespace
