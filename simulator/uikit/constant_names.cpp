// The strings that UIKit exports by name. The platform's headers declare them constant, but strings can only be made
// once Foundation is up: so they get their values here, in a unit that does not see those declarations.

#include "apple/foundation/string.hpp"
#include "uikit/classes.hpp"

extern "C" {
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): set once, at registration
ns::String NSFontAttributeName;
ns::String NSForegroundColorAttributeName;
ns::String UIKeyboardWillShowNotification;
ns::String UIKeyboardDidShowNotification;
ns::String UIKeyboardWillHideNotification;
ns::String UIKeyboardDidHideNotification;
ns::String UIKeyboardWillChangeFrameNotification;
ns::String UIKeyboardDidChangeFrameNotification;
ns::String UIKeyboardFrameBeginUserInfoKey;
ns::String UIKeyboardFrameEndUserInfoKey;
ns::String UIKeyboardAnimationDurationUserInfoKey;
ns::String UIKeyboardAnimationCurveUserInfoKey;
ns::String UIKeyboardIsLocalUserInfoKey;
ns::String UIApplicationWillChangeStatusBarOrientationNotification;
ns::String UIApplicationDidChangeStatusBarOrientationNotification;
ns::String UIApplicationStatusBarOrientationUserInfoKey;
ns::String UIDeviceOrientationDidChangeNotification;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)
}

namespace sim {

void DefineConstantNames() {
    NSFontAttributeName = "NSFont"_ns;
    NSForegroundColorAttributeName = "NSColor"_ns;
    UIKeyboardWillShowNotification = "UIKeyboardWillShowNotification"_ns;
    UIKeyboardDidShowNotification = "UIKeyboardDidShowNotification"_ns;
    UIKeyboardWillHideNotification = "UIKeyboardWillHideNotification"_ns;
    UIKeyboardDidHideNotification = "UIKeyboardDidHideNotification"_ns;
    UIKeyboardWillChangeFrameNotification = "UIKeyboardWillChangeFrameNotification"_ns;
    UIKeyboardDidChangeFrameNotification = "UIKeyboardDidChangeFrameNotification"_ns;
    UIKeyboardFrameBeginUserInfoKey = "UIKeyboardFrameBeginUserInfoKey"_ns;
    UIKeyboardFrameEndUserInfoKey = "UIKeyboardFrameEndUserInfoKey"_ns;
    UIKeyboardAnimationDurationUserInfoKey = "UIKeyboardAnimationDurationUserInfoKey"_ns;
    UIKeyboardAnimationCurveUserInfoKey = "UIKeyboardAnimationCurveUserInfoKey"_ns;
    UIKeyboardIsLocalUserInfoKey = "UIKeyboardIsLocalUserInfoKey"_ns;
    UIApplicationWillChangeStatusBarOrientationNotification =
        "UIApplicationWillChangeStatusBarOrientationNotification"_ns;
    UIApplicationDidChangeStatusBarOrientationNotification =
        "UIApplicationDidChangeStatusBarOrientationNotification"_ns;
    UIApplicationStatusBarOrientationUserInfoKey = "UIApplicationStatusBarOrientationUserInfoKey"_ns;
    UIDeviceOrientationDidChangeNotification = "UIDeviceOrientationDidChangeNotification"_ns;
}

} // namespace sim
