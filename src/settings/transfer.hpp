#pragma once
// The whole configuration, to the pasteboard and from it. Main thread only; both answer with a toast.

#include "apple/foundation/string.hpp"

namespace corvel {

// What the toasts say.

inline constexpr ns::Literal kExportedToast = u"已导出"_literal;
inline constexpr ns::Literal kExportFailedToast = u"导出失败"_literal;
inline constexpr ns::Literal kImportedToast = u"导入成功"_literal;
inline constexpr ns::Literal kNothingCopiedToast = u"剪贴板为空"_literal;
inline constexpr ns::Literal kUnreadableToast = u"格式无效"_literal;

/// `dm_exp`: puts every key of the library with its value on the pasteboard, as one string.
void HandleExport(objc::Class, objc::SEL);

/// `dm_imp`: writes the keys of the configuration on the pasteboard to the store, over what is there. Keys without the
/// prefix and values that the store cannot hold are left out; keys that the configuration lacks stay.
void HandleImport(objc::Class, objc::SEL);

} // namespace corvel
