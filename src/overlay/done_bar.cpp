#include "overlay/done_bar.hpp"

#include "apple/uikit/window.hpp"
#include "overlay/action_target.hpp"

namespace corvel {

DoneBar MakeDoneBar(objc::SEL action) {
    constexpr double kHeight = 44;
    const DoneBar bar{.toolbar =
                          ui::MakeView<ui::Toolbar>({{0, 0}, {ui::Screen::mainScreen().bounds().size.width, kHeight}}),
                      .done = objc::Ref<ui::BarButtonItem>::Adopt(ns::Alloc<ui::BarButtonItem>().initWithTitle(
                          u"完成"_ns, UIBarButtonItemStyleDone, ActionTarget(), action))};
    const auto space = objc::Ref<ui::BarButtonItem>::Adopt(ns::Alloc<ui::BarButtonItem>().initWithBarButtonSystemItem(
        UIBarButtonSystemItemFlexibleSpace, nullptr, nullptr));
    const auto items = ns::New<ns::MutableArray>();
    items->addObject(space.get());
    items->addObject(bar.done.get());
    bar.toolbar->setItems(items);
    return bar;
}

} // namespace corvel
