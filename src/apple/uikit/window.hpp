#pragma once
// Windows, scenes, the screen and the application.

#include "apple/foundation/collections.hpp"
#include "apple/uikit/view_controller.hpp"

enum UISceneActivationState : long {
    UISceneActivationStateUnattached = -1,
    UISceneActivationStateForegroundActive = 0,
    UISceneActivationStateForegroundInactive = 1,
    UISceneActivationStateBackground = 2,
};

namespace ui {

struct Screen : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIScreen";

    static Screen mainScreen() {
        return objc::SendClass<Screen, "mainScreen", Screen>();
    }
    cg::Rect bounds() const {
        return objc::Send<"bounds", cg::Rect>(*this);
    }
    double scale() const {
        return objc::Send<"scale", double>(*this);
    }
};

/// Whatever adopts the UICoordinateSpace protocol.
struct CoordinateSpace : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UICoordinateSpace";

    cg::Rect bounds() const {
        return objc::Send<"bounds", cg::Rect>(*this);
    }
};

struct Scene : Responder {
    using Responder::Responder;
    static constexpr const char *kClassName = "UIScene";

    UISceneActivationState activationState() const {
        return objc::Send<"activationState", UISceneActivationState>(*this);
    }
};

struct Window;

struct WindowScene : Scene {
    using Scene::Scene;
    static constexpr const char *kClassName = "UIWindowScene";

    CoordinateSpace coordinateSpace() const {
        return objc::Send<"coordinateSpace", CoordinateSpace>(*this);
    }
    Window keyWindow() const;
    ns::ArrayOf<Window> windows() const;
};

struct Window : View {
    using View::View;
    static constexpr const char *kClassName = "UIWindow";

    Window initWithWindowScene(WindowScene scene) const {
        return objc::Send<"initWithWindowScene:", Window>(*this, scene);
    }
    /// The scene that shows the window; nil once the system has taken it away.
    /// https://developer.apple.com/documentation/uikit/uiwindowscene
    WindowScene windowScene() const {
        return objc::Send<"windowScene", WindowScene>(*this);
    }
    void setWindowScene(WindowScene scene) const {
        objc::Send<"setWindowScene:", void>(*this, scene);
    }
    void setWindowLevel(double level) const {
        objc::Send<"setWindowLevel:", void>(*this, level);
    }
    void setRootViewController(ViewController controller) const {
        objc::Send<"setRootViewController:", void>(*this, controller);
    }
    ViewController rootViewController() const {
        return objc::Send<"rootViewController", ViewController>(*this);
    }
    void makeKeyAndVisible() const {
        objc::Send<"makeKeyAndVisible", void>(*this);
    }
    void makeKeyWindow() const {
        objc::Send<"makeKeyWindow", void>(*this);
    }
    /// https://developer.apple.com/documentation/uikit/uiwindow
    bool canBecomeKeyWindow() const {
        return objc::Send<"canBecomeKeyWindow", bool>(*this);
    }
    bool isKeyWindow() const {
        return objc::Send<"isKeyWindow", bool>(*this);
    }
};

inline ns::ArrayOf<Window> WindowScene::windows() const {
    return objc::Send<"windows", ns::Array>(*this);
}

inline Window WindowScene::keyWindow() const {
    return objc::Send<"keyWindow", Window>(*this);
}

struct Application : Responder {
    using Responder::Responder;
    static constexpr const char *kClassName = "UIApplication";

    static Application sharedApplication() {
        return objc::SendClass<Application, "sharedApplication", Application>();
    }
    ns::Set connectedScenes() const {
        return objc::Send<"connectedScenes", ns::Set>(*this);
    }
    ns::ArrayOf<Window> windows() const {
        return objc::Send<"windows", ns::Array>(*this);
    }
};

} // namespace ui

extern "C" {
/// The window level of alerts (UIKit's constant).
extern const double UIWindowLevelAlert;
}
