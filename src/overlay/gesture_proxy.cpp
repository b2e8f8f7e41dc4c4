#include "overlay/gesture_proxy.hpp"

#include "apple/uikit/gesture_recognizer.hpp"
#include "apple/uikit/slider.hpp"
#include "objc/class_builder.hpp"

#include <atomic>

namespace corvel {
namespace {

constinit objc::Class gestureProxy = nullptr;

/// Dragging a slider moves the slider and not the panel below it.
bool ShouldReceiveTouch(ns::Object, objc::SEL, ui::GestureRecognizer, ui::Touch touch) {
    return !touch.view().isKindOfClass(objc::ClassOf<ui::Slider>());
}

ns::Object Shared(objc::Class, objc::SEL) {
    return SharedGestureProxy();
}

} // namespace

void RegisterGestureProxyClass() {
    gestureProxy = objc::AllocateOwnClass("GestureProxy", "GestureProxy_Corvel", ns::Object::kClassName);
    if (gestureProxy == nullptr) {
        return;
    }
    static constexpr objc::MethodEntry kMethods[] = {
        objc::MethodNamed<"gestureRecognizer:shouldReceiveTouch:", &ShouldReceiveTouch>()};
    static constexpr objc::MethodEntry kClassMethods[] = {objc::MethodNamed<"shared", &Shared>()};
    objc::AddMethods(gestureProxy, kMethods);
    objc::AddMethods(objc::MetaclassOf(gestureProxy), kClassMethods);
    if (objc::Protocol protocol = objc_getProtocol("UIGestureRecognizerDelegate")) {
        class_addProtocol(gestureProxy, protocol);
    }
    objc_registerClassPair(gestureProxy);
}

ns::Object SharedGestureProxy() {
    static constinit std::atomic<objc::id> shared = nullptr;
    if (objc::id existing = shared.load(std::memory_order_acquire)) {
        return ns::Object{existing};
    }
    auto fresh = ns::New<ns::Object>(gestureProxy);
    objc::id expected = nullptr;
    if (shared.compare_exchange_strong(expected, fresh.get().pointer, std::memory_order_acq_rel)) {
        return objc::Object{objc::Retain(fresh.get().pointer)}; // the process keeps this one
    }
    return ns::Object{expected}; // another thread was first
}

} // namespace corvel
