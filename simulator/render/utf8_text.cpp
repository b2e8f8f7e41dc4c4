#include "render/utf8_text.hpp"

#include "runtime/utf16.hpp"

#include <glib.h>

namespace sim {

Utf8Text::Utf8Text(std::u16string_view text, char32_t (*shown)(char32_t character)) {
    for (std::size_t i = 0; i < text.size();) {
        const char32_t character = PointAt(text, i);
        starts.push_back(i);
        i += UnitCount(character);
        char buffer[6];
        bytes.append(buffer, static_cast<std::size_t>(g_unichar_to_utf8(shown(character), buffer)));
    }
}

} // namespace sim
