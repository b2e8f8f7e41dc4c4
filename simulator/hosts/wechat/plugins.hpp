#pragma once
// The manager of plug-ins: what registers a switch gets a row on its page, and the row writes the preference.

#include "apple/uikit/view.hpp"
#include "objc/ref.hpp"

namespace sim::hosts::wechat {

/// Registers the manager and its switch.
void RegisterPlugins();

/// The page of switches, as a sheet over the lower part of a screen.
class PluginsPage {
  public:
    /// Shows the page with the switches registered so far, in front of everything in the parent.
    void Open(ui::View parent);
    void Close();

  private:
    objc::Ref<ui::View> sheet_;
};

} // namespace sim::hosts::wechat
