#pragma once
// The panels of the overlay window: what the matrix and the settings have in common. Main thread only.

#include "apple/uikit/effects.hpp"
#include "apple/uikit/gesture_recognizer.hpp"
#include "objc/ref.hpp"

namespace corvel {

/// One panel, for the whole process; its views come and go. It registers when it is shown first: whoever closes or
/// tears down everything needs to know no panel by name.
class Panel {
  public:
    /// `shrunk` is the scale that the panel grows from as it opens and shrinks to as it closes.
    constexpr explicit Panel(double shrunk) : shrunk_(shrunk) {}

    /// The panel's view; nil while there is none.
    ui::VisualEffectView view() const {
        return view_;
    }
    /// What holds the content inside the view; comes and goes with it.
    ui::View content() const {
        return content_;
    }
    /// Whether the panel can be seen at all: there is a view and it is not faded out.
    bool IsOpen() const;

    /// Adds the views to the overlay window, in the place of any that stand already.
    void Show(const objc::Ref<ui::VisualEffectView> &view, const objc::Ref<ui::View> &content);
    /// Springs the view from nothing to the alpha and its full size, over the duration in seconds.
    void SpringIn(double duration, double alpha);
    /// Brings the view to the front of the overlay window, under the float buttons.
    void Raise() const;
    /// Ends editing inside the view, fades and shrinks it out over 0.2 s, then removes it. Nothing without a view.
    void Close();
    /// Ends editing and takes the views away at once.
    void Remove();

  private:
    friend bool CloseOpenPanels();
    friend void RemovePanels();

    void Register();

    double shrunk_;
    objc::Ref<ui::VisualEffectView> view_;
    objc::Ref<ui::View> content_;
    bool registered_ = false;
    Panel *next_ = nullptr;
};

/// A panel's view, blurred in the style, with the frame and the corner radius in points.
objc::Ref<ui::VisualEffectView> MakePanelView(UIBlurEffectStyle style, cg::Rect frame, double cornerRadius);

/// Closes every open panel; whether there was one.
bool CloseOpenPanels();

/// Takes all panels away at once.
void RemovePanels();

/// `dm_pM:`: moves the recogniser's panel with the finger, unbounded.
void HandlePanelPan(objc::Class, objc::SEL, ui::PanGestureRecognizer recognizer);

} // namespace corvel
