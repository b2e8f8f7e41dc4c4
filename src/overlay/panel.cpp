#include "overlay/panel.hpp"

#include "overlay/state.hpp"
#include "overlay/windows.hpp"

#include <utility>

namespace corvel {
namespace {

/// The panels that were ever shown, as a list through their `next_`.
constinit Panel *firstPanel = nullptr;

} // namespace

bool Panel::IsOpen() const {
    constexpr double kFadedOut = 0.01;
    return view_ && view_->alpha() > kFadedOut;
}

void Panel::Register() {
    if (!std::exchange(registered_, true)) {
        next_ = std::exchange(firstPanel, this);
    }
}

void Panel::Show(const objc::Ref<ui::VisualEffectView> &view, const objc::Ref<ui::View> &content) {
    Register();
    Remove();
    view_ = view;
    content_ = content;
    Overlay().window->addSubview(view_);
}

void Panel::SpringIn(double duration, double alpha) {
    const objc::Ref<ui::View> view = view_.get();
    view->setTransform(cg::AffineTransform::Scale(shrunk_, shrunk_));
    view->setAlpha(0);
    ui::View::animateWithDuration(duration, 0, 0.7, 0.5, 0, objc::MakeBlock<void()>([=] {
                                      view->setAlpha(alpha);
                                      view->setTransform(cg::AffineTransform::Identity());
                                  }),
                                  nullptr);
}

void Panel::Raise() const {
    RaisePanel(view_);
}

void Panel::Close() {
    const objc::Ref<ui::View> closing = view_.get();
    if (!closing) {
        return;
    }
    closing->endEditing(true);
    ui::View::animateWithDuration(0.2, objc::MakeBlock<void()>([closing, shrunk = shrunk_] {
                                      closing->setAlpha(0);
                                      closing->setTransform(cg::AffineTransform::Scale(shrunk, shrunk));
                                  }),
                                  objc::MakeBlock<void(bool)>([this, closing](bool) {
                                      closing->removeFromSuperview();
                                      // Another view may have taken its place meanwhile; the same one may have been
                                      // opened again, and goes all the same.
                                      if (view_.get() == closing.get()) {
                                          Remove();
                                      }
                                  }));
}

void Panel::Remove() {
    // A view that is removed loses the keyboard without its fields being told: what was typed would be lost. What they
    // store may bring the overlay down, and with it this panel.
    const objc::Ref<ui::View> view = view_.get();
    view->endEditing(true);
    view_->removeFromSuperview();
    view_ = nullptr;
    content_ = nullptr;
}

objc::Ref<ui::VisualEffectView> MakePanelView(UIBlurEffectStyle style, cg::Rect frame, double cornerRadius) {
    const auto view = objc::Ref<ui::VisualEffectView>::Adopt(
        ns::Alloc<ui::VisualEffectView>().initWithEffect(ui::BlurEffect::effectWithStyle(style)));
    view->setFrame(frame);
    view->layer().setCornerRadius(cornerRadius);
    view->setClipsToBounds(true);
    return view;
}

bool CloseOpenPanels() {
    bool any = false;
    for (Panel *panel = firstPanel; panel != nullptr; panel = panel->next_) {
        if (panel->IsOpen()) {
            panel->Close();
            any = true;
        }
    }
    return any;
}

void RemovePanels() {
    for (Panel *panel = firstPanel; panel != nullptr; panel = panel->next_) {
        panel->Remove();
    }
}

void HandlePanelPan(objc::Class, objc::SEL, ui::PanGestureRecognizer recognizer) {
    const ui::View panel = recognizer.view();
    const ui::View space = panel.superview();
    const cg::Point moved = recognizer.translationInView(space);
    const cg::Point center = panel.center();
    panel.setCenter({center.x + moved.x, center.y + moved.y});
    recognizer.setTranslation({0, 0}, space);
    if (recognizer.state() == UIGestureRecognizerStateBegan) {
        RaisePanel(panel);
    }
}

} // namespace corvel
