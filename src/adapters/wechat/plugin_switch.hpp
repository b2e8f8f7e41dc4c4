#pragma once
// The switch in WeChat's plugin manager. It is on to hide the overlay, off to show it: the sense is inverted on
// purpose.

namespace corvel {

/// Whether the host is WeChat and its switch is on. Reads no preference in any other host.
bool IsFinderSwitchOn();

/// Adds the switch to WeChat's plugin manager, when the host is WeChat and has one. Main thread.
void RegisterWeChatPluginSwitch();

} // namespace corvel
