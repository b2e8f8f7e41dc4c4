#include "render/utf8_text.hpp"

#include "runtime/utf16.hpp"

#include <glib.h>

namespace sim {

Utf8Text::Utf8Text(std::u16string_view text, char32_t (*shown)(char32_t character)) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        starts.push_back(i);
        char32_t character = text[i];
        if (IsPairAt(text, i)) {
            character = 0x10000 + ((character - 0xD800) << 10) + (text[++i] - 0xDC00U);
        }
        char buffer[6];
        bytes.append(buffer, static_cast<std::size_t>(g_unichar_to_utf8(shown(character), buffer)));
    }
}

} // namespace sim
