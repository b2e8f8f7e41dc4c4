// The pasteboard, behind "copy" and "paste".

#include "apple/uikit/pasteboard.hpp"
#include "driver/subjects/subjects.hpp"
#include "runtime/utf16.hpp"
#include "script/text.hpp"
#include "script/values.hpp"

#include <filesystem>
#include <fstream>

namespace sim::driver {
namespace {

/// The file's text, UTF-8. The name counts from the script's directory.
ns::String ReadFile(WordReader &words) {
    const std::string &name = words.Next("a file").text;
    const std::filesystem::path path = std::filesystem::path(words.place().file).parent_path() / name;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        words.Fail("cannot read " + path.string());
    }
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::optional<std::u16string> units = script::ToUtf16(bytes);
    if (!units) {
        words.Fail(path.string() + " is not UTF-8");
    }
    return StringOf(*units);
}

/// Writes what was copied, UTF-8, for other programs. The name counts from the working directory.
void WriteFile(WordReader &words) {
    const std::string &name = words.Next("a file").text;
    const ns::String text = ui::Pasteboard::generalPasteboard().string();
    if (!text) {
        words.Fail("the pasteboard holds no text");
    }
    const std::string bytes = script::TextOf(text);
    std::ofstream file(name, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        words.Fail("cannot write " + name);
    }
}

/// pasteboard "TEXT" | none | from FILE | to FILE
void DoPasteboard(Session &, WordReader &words) {
    if (words.Take("to")) {
        WriteFile(words);
        return;
    }
    ns::String text;
    if (words.Take("from")) {
        text = ReadFile(words);
    } else if (!words.Take("none")) {
        text = script::MakeString(words.QuotedText("a text, none, from FILE or to FILE"));
    }
    ui::Pasteboard::generalPasteboard().setString(text);
}

Answer AskPasteboard(Session &, WordReader &words) {
    const ns::String text = ui::Pasteboard::generalPasteboard().string();
    if (!text) {
        words.Rest();
        return {};
    }
    return {{words.Take("length") ? Bare(text.length()) : script::Text(script::TextOf(text))}};
}

constexpr Command kCommands[] = {{"pasteboard", &DoPasteboard, When::kBeforeLaunchToo}};
constexpr Query kQueries[] = {{"pasteboard", &AskPasteboard}};

} // namespace

constinit const Subject kPasteboard{kCommands, kQueries};

} // namespace sim::driver
