#include "settings/settings_panel_closing.hpp"

#include "overlay/state.hpp"

namespace corvel {

void CloseSettingsPanel() {
    const objc::Ref<ui::View> panel = Overlay().settingsPanel.get();
    if (!panel) {
        return;
    }
    ui::View::animateWithDuration(0.2, objc::MakeBlock<void()>([=] {
                                      panel->setAlpha(0);
                                      panel->setTransform(cg::AffineTransform::Scale(0.8, 0.8));
                                  }),
                                  objc::MakeBlock<void(bool)>([=](bool) {
                                      panel->removeFromSuperview();
                                      // A long press or a rebuild may have put a new panel in its place meanwhile.
                                      if (Overlay().settingsPanel.get() == panel.get()) {
                                          Overlay().settingsPanel = nullptr;
                                      }
                                  }));
}

} // namespace corvel
