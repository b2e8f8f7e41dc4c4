#include "adapters/send_paths.hpp"

namespace corvel {

objc::Ref<ns::String> TextToSend(objc::id text) {
    const ns::String given{text};
    return given.length() != 0 ? given : u"额"_ns;
}

} // namespace corvel
