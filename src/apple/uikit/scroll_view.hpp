#pragma once
// UIScrollView.

#include "apple/uikit/view.hpp"

namespace ui {

struct ScrollView : View {
    using View::View;
    static constexpr const char *kClassName = "UIScrollView";

    void setContentOffset(cg::Point offset) const {
        objc::Send<"setContentOffset:", void>(*this, offset);
    }
    void setContentSize(cg::Size size) const {
        objc::Send<"setContentSize:", void>(*this, size);
    }
};

} // namespace ui
