#include "window/texts.hpp"

#include <cstdlib>
#include <string_view>

namespace sim::window {
namespace {

constexpr Texts kEnglish{.enterRoom = "Enter a room",
                         .leaveRoom = "Leave it",
                         .sendingThrows = "Sending throws",
                         .calm = "Calm",
                         .held = "Held",
                         .portrait = "Upright",
                         .left = "Left",
                         .right = "Right",
                         .look = "Look",
                         .light = "Light",
                         .dark = "Dark",
                         .screen = "Screen",
                         .small = "Small",
                         .classic = "Classic",
                         .usual = "Usual",
                         .large = "Large",
                         .comments = "Comments that the app received",
                         .noComments = "None yet.",
                         .log = "The library's log",
                         .noLog = "Empty.",
                         .save = "Save as a script",
                         .savedAs = "Saved as ",
                         .cannotWrite = "Cannot write ",
                         .hint = "Ctrl or Alt: second finger · Ctrl+V: paste · Esc: hide keys"};

constexpr Texts kChinese{.enterRoom = "进入直播间",
                         .leaveRoom = "离开",
                         .sendingThrows = "发送时抛异常",
                         .calm = "恢复",
                         .held = "方向",
                         .portrait = "竖屏",
                         .left = "左横屏",
                         .right = "右横屏",
                         .look = "外观",
                         .light = "浅色",
                         .dark = "深色",
                         .screen = "屏幕",
                         .small = "小",
                         .classic = "经典",
                         .usual = "常用",
                         .large = "大",
                         .comments = "应用收到的弹幕",
                         .noComments = "暂无。",
                         .log = "插件日志",
                         .noLog = "为空。",
                         .save = "保存为脚本",
                         .savedAs = "已保存：",
                         .cannotWrite = "无法写入 ",
                         .hint = "Ctrl 或 Alt：第二根手指 · Ctrl+V：粘贴 · Esc：收起键盘"};

} // namespace

const Texts &TextsOfTheComputer() {
    // In the order in which they count: https://pubs.opengroup.org/onlinepubs/9699919799/basedefs/V1_chap08.html
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char *const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            return std::string_view(value).starts_with("zh") ? kChinese : kEnglish;
        }
    }
    return kEnglish;
}

} // namespace sim::window
