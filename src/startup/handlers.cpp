// Every way in: what a touch on the overlay runs. The handlers are class methods of NSObject, whose class object is the
// target of all controls and recognisers.

#include "startup/handlers.hpp"

#include "matrix/matrix_panel.hpp"
#include "matrix/slot_editor.hpp"
#include "matrix/tap.hpp"
#include "objc/class_builder.hpp"
#include "overlay/capture.hpp"
#include "overlay/float_drag.hpp"
#include "overlay/panel.hpp"
#include "settings/color_choice.hpp"
#include "settings/grid_rows.hpp"
#include "settings/log_viewer.hpp"
#include "settings/reset.hpp"
#include "settings/settings_panel.hpp"
#include "settings/settings_rows.hpp"
#include "settings/settings_sections.hpp"
#include "settings/transfer.hpp"

namespace corvel {

void RegisterHandlers() {
    static constexpr objc::MethodEntry kHandlers[] = {
        // The floating and the capture button.
        objc::MethodNamed<"dm_ftap", &HandleFloatTap>(),
        objc::MethodNamed<"dm_flp:", &HandleFloatLongPress>(),
        objc::MethodNamed<"dm_panF:", &HandleFloatDrag>(),
        objc::MethodNamed<"dm_cap", &HandleCaptureTap>(),
        // The matrix.
        objc::MethodNamed<"dm_pM:", &HandlePanelPan>(),
        objc::MethodNamed<"dm_bM", &HandlePanelTap>(),
        objc::MethodNamed<"dm_mT:", &HandleCellTap>(),
        // The slot editor.
        objc::MethodNamed<"dm_mL:", &HandleCellLongPress>(),
        objc::MethodNamed<"dm_sv:", &HandleEditorSave>(),
        objc::MethodNamed<"dm_dv:", &HandleEditorCancel>(),
        // The settings panel.
        objc::MethodNamed<"dm_bm", &HandleSettingsPanelTap>(),
        objc::MethodNamed<"dm_cm", &HandleSettingsClose>(),
        objc::MethodNamed<"dm_tog:", &HandleSectionHeader>(),
        objc::MethodNamed<"dm_sw:", &HandleSwitchChange>(),
        objc::MethodNamed<"dm_sl:", &HandleSliderChange>(),
        objc::MethodNamed<"dm_gc:", &HandleGridChoice>(),
        objc::MethodNamed<"dm_gb:", &HandleGridFieldBegan>(),
        objc::MethodNamed<"dm_gi:", &HandleGridField>(),
        objc::MethodNamed<"dm_gd", &HandleGridDone>(),
        objc::MethodNamed<"dm_gt:", &HandleTapBesideFields>(),
        objc::MethodNamed<"dm_clr:", &HandleColorButton>(),
        objc::MethodNamed<"dm_cdn:", &HandleColorPicked>(),
        // The delegate of the picker and of its presentation is the class object of NSObject like every other target,
        // and they know no other ways to tell the end. As class methods of the root class these reach class
        // objects only, never an instance that the host has for a delegate; and the handlers leave alone any picker
        // that carries none of our keys.
        objc::MethodNamed<"colorPickerViewControllerDidFinish:", &HandleColorPicked>(),
        objc::MethodNamed<"presentationControllerDidDismiss:", &HandlePickerSwipedAway>(),
        // The configuration as a whole.
        objc::MethodNamed<"dm_exp", &HandleExport>(),
        objc::MethodNamed<"dm_imp", &HandleImport>(),
        objc::MethodNamed<"dm_clear", &HandleReset>(),
        // The debug log.
        objc::MethodNamed<"dm_log", &HandleShowLog>(),
        objc::MethodNamed<"dm_clearLog", &HandleClearLog>(),
        objc::MethodNamed<"dm_dlp:", &HandleDebugLongPress>(),
        objc::MethodNamed<"dm_edbg", &HandleEnableDebug>(),
    };
    objc::AddMethods(objc::MetaclassOf(objc_getClass("NSObject")), kHandlers);
}

} // namespace corvel
