// What a run of hundred.scn cannot do without, beside starting, by bare calls: the libraries that draw are loaded, each
// text that is shown is measured once in its font, and the preferences are set and stored as often as the scenario and
// the library do. Nothing is made of it: no view, no app, no library, no script.

#include "render/text_layout.hpp"
#include "simulator/bare_send.hpp"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

using namespace bench;

struct Shown {
    sim::FontFace face;
    const char16_t *text;
};

constexpr Shown kShown[] = {
    {{18, true}, u"弹"},
    {{18, false}, u"截"},
    {{11, false}, u"房间 7311"},
    {{11, false}, u"房间 int 200"},
    {{14, false}, u"欢迎来到直播间！请文明发言，理性消费。"},
    {{14, false}, u"阿泽：来了来了"},
    {{14, false}, u"月光：这首好听"},
    {{14, false}, u"我：第一条"},
    {{14, false}, u"我：额"},
    {{14, false}, u"我：100% %@ %d %s %n"},
    {{14, false}, u"我：大家好"},
    {{14, false}, u"我：2"},
    {{14, false}, u"我：  空格"},
    {{14, false}, u"大家好"},
    {{14, false}, u"2"},
    {{14, false}, u"  空格"},
    {{14, false}, u"换行  "},
    {{14, false}, u"4"},
    {{14, false}, u" 你好😀 "},
    {{21, false}, u"大家好"},
    {{21, false}, u" 你好😀 "},
    {{21, false}, u"  空格"},
    {{21, false}, u"换行  "},
    {{21, false}, u"4"},
    {{15, true}, u"保存"},
    {{15, false}, u"取消"},
    {{15, false}, u"选择"},
    {{15, false}, u"✕"},
    {{15, false}, u"导出Corvel配置"},
    {{15, false}, u"导入Corvel配置"},
    {{15, false}, u"清除插件配置"},
    {{17, true}, u"完成"},
    {{14, true}, u"▶ 插件配置"},
    {{14, true}, u"▼ 插件配置"},
    {{14, true}, u"▶ 延迟优化(实验)"},
    {{13, false}, u"自定义"},
    {{13, false}, u"4"},
    {{13, false}, u"12"},
    {{13, false}, u"16"},
    {{13, false}, u"20"},
    {{13, false}, u"25"},
    {{13, false}, u"36"},
    {{13, false}, u"42"},
    {{13, false}, u"48"},
    {{12, false}, u"已导出"},
    {{12, false}, u"导入成功"},
};

objc::id Text(const std::string &text) {
    return Send(ClassNamed("NSString"), "stringWithUTF8String:", text.c_str());
}

// Of one run of hundred.scn: the preferences that are set, of them the log's, which grows by a line, and how many
// others there are; how often a change is followed by a write.
constexpr int kSet = 58;
constexpr int kLogged = 22;
constexpr int kOthers = 9;
constexpr int kStored = 22;

/// Whether, of so many among all, one falls on this.
bool FallsOn(int number, int many) {
    return number * many / kSet != (number + 1) * many / kSet;
}

void Set(objc::id defaults, int number, std::string &log) {
    if (FallsOn(number, kLogged)) {
        log += "[2026-01-01 09:41:00] [DY] send=\"100%\" store={0x1234} roomId=200 bindCount=4\n";
        Send<void>(defaults, "setObject:forKey:", Text(log), Text("Corvel.debug.logBuffer"));
    } else {
        Send<void>(defaults, "setObject:forKey:", Text(std::to_string(number)),
                   Text("Corvel.config.value" + std::to_string(number % kOthers)));
    }
}

/// Stores them: a property list in the binary format, written to a file at once.
void Store(objc::id defaults, const std::string &file) {
    constexpr unsigned long kBinaryFormat = 200;
    const objc::id values = Send(defaults, "persistentDomainForName:", Text("corvel-bench-bare"));
    const objc::id data =
        Send(ClassNamed("NSPropertyListSerialization"), "dataFromPropertyList:format:errorDescription:", values,
             kBinaryFormat, static_cast<objc::id *>(nullptr));
    Send<unsigned char>(data, "writeToFile:atomically:", Text(file), static_cast<unsigned char>(1));
}

} // namespace

int main() {
    const objc::id pool = Send(Send(ClassNamed("NSAutoreleasePool"), "alloc"), "init");
    const objc::id defaults = Send(ClassNamed("NSUserDefaults"), "standardUserDefaults");
    for (const Shown &shown : kShown) {
        sim::MeasureText(shown.text, {shown.face, sim::Wrapping::kNone, 0});
    }
    std::string folder = (std::filesystem::temp_directory_path() / "corvel-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        return 1;
    }
    std::string log;
    for (int number = 0; number < kSet; ++number) {
        Set(defaults, number, log);
        if (FallsOn(number, kStored)) {
            Store(defaults, folder + "/UserDefaults.plist");
        }
    }
    std::filesystem::remove_all(folder);
    Send<void>(pool, "release");
    return 0;
}
