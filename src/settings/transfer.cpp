#include "settings/transfer.hpp"

#include "apple/uikit/pasteboard.hpp"
#include "matrix/matrix_panel.hpp"
#include "overlay/capture_button.hpp"
#include "overlay/toast.hpp"
#include "preferences/own_keys.hpp"
#include "preferences/storable.hpp"
#include "settings/transfer_text.hpp"

namespace corvel {
namespace {

objc::Ref<ns::MutableDictionary> StoredConfiguration() {
    const auto configuration = ns::New<ns::MutableDictionary>();
    VisitOwnKeys(ns::UserDefaults::standardUserDefaults(),
                 [&](ns::String key, ns::Object value) { configuration->setObject(value, key); });
    return configuration;
}

void StoreConfiguration(ns::Dictionary configuration) {
    for (const ns::String key : ns::ArrayOf<ns::String>(configuration.allKeys())) {
        const ns::Object value = configuration.objectForKey(key);
        if (IsOwnKey(key) && IsStorable(value)) {
            StoreObject(key, value);
        }
    }
    SynchronizeDefaults();
}

} // namespace

void HandleExport(objc::Class, objc::SEL) {
    const objc::Ref<ns::String> text = EncodeConfiguration(StoredConfiguration().get());
    if (!text) {
        ShowToast(kExportFailedToast);
        return;
    }
    ui::Pasteboard::generalPasteboard().setString(text);
    ShowToast(kExportedToast);
}

void HandleImport(objc::Class, objc::SEL) {
    const objc::Ref<ns::String> text = ui::Pasteboard::generalPasteboard().string();
    if (text->length() == 0) {
        ShowToast(kNothingCopiedToast);
        return;
    }
    const objc::Ref<ns::Dictionary> configuration = DecodeConfiguration(text);
    if (!configuration) {
        ShowToast(kUnreadableToast);
        return;
    }
    StoreConfiguration(configuration);
    // An open settings panel keeps showing the old values until it is opened anew.
    LayoutMatrix();
    RebuildCaptureButton();
    ShowToast(kImportedToast);
}

} // namespace corvel
