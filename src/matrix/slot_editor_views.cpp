#include "matrix/slot_editor_views.hpp"

#include "apple/foundation/number.hpp"
#include "apple/uikit/button.hpp"
#include "apple/uikit/window.hpp"
#include "overlay/action_target.hpp"
#include "overlay/done_bar.hpp"

namespace corvel {
namespace {

constexpr double kBoxHeight = 230;

/// Width and height of the screen in points.
cg::Size ScreenSize() {
    return ui::Screen::mainScreen().bounds().size;
}

double BoxWidth() {
    return ScreenSize().width - 40;
}

ui::Button AddButton(const SlotEditor &editor, cg::Rect frame, ns::String title, ui::Color titleColor,
                     objc::SEL action) {
    const auto button = ui::Button::buttonWithType(UIButtonTypeSystem);
    button.setFrame(frame);
    button.setTitle(title, UIControlStateNormal);
    button.setTitleColor(titleColor, UIControlStateNormal);
    button.addTarget(ActionTarget(), action, UIControlEventTouchUpInside);
    objc::SetAssociated(button, kEditorController, editor.controller);
    editor.box->addSubview(button);
    return button;
}

/// Gives a control what `dm_sv:` reads from its sender.
void MakeSaving(ns::Object control, const SlotEditor &editor, int index) {
    objc::SetAssociated(control, kEditorController, editor.controller);
    objc::SetAssociated(control, kEditorTextView, editor.textView);
    objc::SetAssociated(control, kEditorSlotIndex, ns::Number::numberWithInt(index));
}

void AddTitle(ui::View box) {
    const auto title = ui::MakeView<ui::Label>({{16, 14}, {BoxWidth() - 64, 20}});
    title->setText(u"编辑弹幕"_ns);
    title->setTextColor(ui::Color::labelColor());
    title->setFont(ui::Font::boldSystemFontOfSize(16));
    box.addSubview(title);
}

objc::Ref<ui::TextView> AddTextView(ui::View box, ns::String text) {
    const auto textView = ui::MakeView<ui::TextView>({{12, 44}, {BoxWidth() - 24, 100}});
    textView->setBackgroundColor(ui::Color::secondarySystemBackgroundColor());
    textView->setTextColor(ui::Color::labelColor());
    textView->setFont(ui::Font::systemFontOfSize(14));
    textView->layer().setBorderWidth(1);
    textView->layer().setBorderColor(ui::Color::separatorColor().CGColor());
    textView->layer().setCornerRadius(8);
    textView->setTextContainerInset({6, 4, 6, 4});
    textView->setText(text);
    box.addSubview(textView);
    return textView;
}

void AddButtons(const SlotEditor &editor, int index) {
    const double width = BoxWidth();
    AddButton(editor, {{width - 42, 10}, {32, 32}}, u"✕"_ns, ui::Color::secondaryLabelColor(),
              objc::Selector<"dm_dv:">());
    const auto cancel = AddButton(editor, {{16, 154}, {width / 2 - 24, 36}}, u"取消"_ns, ui::Color::labelColor(),
                                  objc::Selector<"dm_dv:">());
    cancel.setBackgroundColor(ui::Color::systemGrayColor().colorWithAlphaComponent(0.15));
    cancel.layer().setCornerRadius(8);
    cancel.titleLabel().setFont(ui::Font::systemFontOfSize(15));
    const auto save = AddButton(editor, {{width / 2 + 8, 154}, {width / 2 - 24, 36}}, u"保存"_ns,
                                ui::Color::whiteColor(), objc::Selector<"dm_sv:">());
    save.setBackgroundColor(ui::Color::systemBlueColor());
    save.layer().setCornerRadius(8);
    save.titleLabel().setFont(ui::Font::boldSystemFontOfSize(15));
    MakeSaving(save, editor, index);
}

/// The bar above the keyboard, whose "完成" saves too.
void AddToolbar(const SlotEditor &editor, int index) {
    const DoneBar bar = MakeDoneBar(objc::Selector<"dm_sv:">());
    MakeSaving(bar.done.get(), editor, index);
    editor.textView->setInputAccessoryView(bar.toolbar);
}

} // namespace

SlotEditor BuildSlotEditor(int index, ns::String text) {
    SlotEditor editor{.controller = ns::New<ui::ViewController>(), .box = {}, .textView = {}};
    editor.controller->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    editor.controller->view().setBackgroundColor(ui::Color::blackColor().colorWithAlphaComponent(0.45));
    const cg::Rect frame{{20, (ScreenSize().height - kBoxHeight) * 0.5}, {BoxWidth(), kBoxHeight}};
    editor.box = ui::MakeView<ui::View>(frame);
    editor.box->setBackgroundColor(ui::Color::systemBackgroundColor());
    editor.box->layer().setCornerRadius(12);
    editor.box->setClipsToBounds(true);
    AddTitle(editor.box);
    editor.textView = AddTextView(editor.box, text);
    AddButtons(editor, index);
    AddToolbar(editor, index);
    editor.controller->view().addSubview(editor.box);
    return editor;
}

void UntieIfGone(ui::ViewController controller) {
    if (controller.presentingViewController()) {
        return;
    }
    const auto box = objc::As<ui::View>(controller.view().subviews().firstObject());
    for (const ui::View view : box.subviews()) {
        objc::SetAssociated(view, kEditorController, nullptr);
        if (view.isKindOfClass(objc::ClassOf<ui::TextView>())) {
            // "完成" holds the text view, so the text view may not hold the bar with it for ever.
            objc::As<ui::TextView>(view).setInputAccessoryView(nullptr);
        }
    }
}

} // namespace corvel
