#include "inspect/shown.hpp"

#include <llvm/Support/ConvertUTF.h>
#include <llvm/Support/Unicode.h>

namespace inspect {

std::string Shown(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto *at = reinterpret_cast<const llvm::UTF8 *>(text.data());
    const auto *const end = at + text.size();
    std::string shown;
    while (at != end) {
        const auto *next = at;
        llvm::UTF32 code = 0;
        if (llvm::convertUTF8Sequence(&next, end, &code, llvm::strictConversion) == llvm::conversionOK &&
            llvm::sys::unicode::isPrintable(static_cast<int>(code))) {
            shown.append(at, next);
            at = next;
        } else {
            shown += {'\\', 'x', kDigits[*at >> 4], kDigits[*at & 15]};
            ++at;
        }
    }
    return shown;
}

} // namespace inspect
