// The decoder of configurations: any text gives a dictionary or nothing, and what it gives can travel again.

#include "platform.hpp"
#include "settings/transfer_text.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    fuzz::InstallPlatform();
    const sim::AutoreleasePool pool;
    const objc::Ref<ns::Dictionary> read = corvel::DecodeConfiguration(fuzz::CopiedText(bytes, size));
    // Packing takes far longer than reading, so only some go back.
    if (!read || bytes[size / 2] % 8 != 0) {
        return 0;
    }
    if (const objc::Ref<ns::String> again = corvel::EncodeConfiguration(read)) {
        const objc::Ref<ns::Dictionary> second = corvel::DecodeConfiguration(again);
        fuzz::Require(second && second->allKeys().count() == read->allKeys().count(),
                      "what was encoded cannot be decoded");
    }
    return 0;
}
