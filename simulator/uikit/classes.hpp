#pragma once
// Every class of the subset, superclasses before their subclasses. The file of a class defines it in Define<Name>();
// some define a close family, or what UIKit adds to a class of Foundation.

#define UIKIT_CLASSES(DEFINE)                                                                                          \
    DEFINE(ConstantNames)                                                                                              \
    DEFINE(Color)                                                                                                      \
    DEFINE(Font)                                                                                                       \
    DEFINE(TextMeasuring)                                                                                              \
    DEFINE(Haptics)                                                                                                    \
    DEFINE(Layer)                                                                                                      \
    DEFINE(Screen)                                                                                                     \
    DEFINE(Orientation)                                                                                                \
    DEFINE(Event)                                                                                                      \
    DEFINE(Responder)                                                                                                  \
    DEFINE(Application)                                                                                                \
    DEFINE(Scene)                                                                                                      \
    DEFINE(GestureRecognizer)                                                                                          \
    DEFINE(TapGestureRecognizer)                                                                                       \
    DEFINE(LongPressGestureRecognizer)                                                                                 \
    DEFINE(PanGestureRecognizer)                                                                                       \
    DEFINE(View)                                                                                                       \
    DEFINE(Image)                                                                                                      \
    DEFINE(Window)                                                                                                     \
    DEFINE(PresentationController)                                                                                     \
    DEFINE(ViewController)                                                                                             \
    DEFINE(Label)                                                                                                      \
    DEFINE(Effects)                                                                                                    \
    DEFINE(Control)                                                                                                    \
    DEFINE(Button)                                                                                                     \
    DEFINE(Switch)                                                                                                     \
    DEFINE(Slider)                                                                                                     \
    DEFINE(SegmentedControl)                                                                                           \
    DEFINE(TextField)                                                                                                  \
    DEFINE(ColorPicker)                                                                                                \
    DEFINE(ScrollView)                                                                                                 \
    DEFINE(TextView)                                                                                                   \
    DEFINE(BarItem)                                                                                                    \
    DEFINE(Toolbar)                                                                                                    \
    DEFINE(Keyboard)                                                                                                   \
    DEFINE(KeyboardKeys)                                                                                               \
    DEFINE(AlertController)                                                                                            \
    DEFINE(AlertView)                                                                                                  \
    DEFINE(Pasteboard)

namespace sim {

#define DECLARE(Name) void Define##Name();
UIKIT_CLASSES(DECLARE)
#undef DECLARE

} // namespace sim
