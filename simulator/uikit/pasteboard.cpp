#include "uikit/pasteboard.hpp"

#include "runtime/failures.hpp"
#include "runtime/lasting.hpp"
#include "runtime/library_deeds.hpp"
#include "runtime/native_class.hpp"
#include "runtime/utf16.hpp"
#include "uikit/classes.hpp"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>

namespace sim {
namespace {

using ui::Pasteboard;

struct Copied {
    objc::Ref<Pasteboard> board = ns::New<Pasteboard>();
    std::string path;
    std::optional<std::u16string> text;
    long changes = 0;
};

Copied &Shared() {
    return Lasting<Copied>();
}

void Write() {
    const Copied &copied = Shared();
    if (copied.path.empty()) {
        return;
    }
    std::error_code ignored;
    if (!copied.text) {
        std::filesystem::remove(copied.path, ignored);
        return;
    }
    std::ofstream file(copied.path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char *>(copied.text->data()),
               static_cast<std::streamsize>(copied.text->size() * sizeof(char16_t)));
    file.close();
    if (!file) {
        std::fprintf(stderr, "cannot write %s\n", copied.path.c_str());
    }
}

} // namespace

void DefinePasteboard() {
    auto pasteboard = Class("UIPasteboard", "NSObject");
    pasteboard.ClassMethod<"generalPasteboard">([](Pasteboard) -> Pasteboard { return Shared().board; });
    pasteboard.Method<"string">([](Pasteboard) {
        NoteDeed("pasteboard", "read", nullptr);
        const std::optional<std::u16string> &text = Shared().text;
        return text && !Fails(Failure::kPasteboard) ? StringOf(*text) : ns::String{};
    });
    pasteboard.Method<"setString:">([](Pasteboard, ns::String text) {
        NoteDeed("pasteboard", "write", nullptr);
        if (Fails(Failure::kPasteboard)) {
            return;
        }
        Shared().text = text ? std::optional(UnitsOf(text)) : std::nullopt;
        ++Shared().changes;
        Write();
    });
    pasteboard.Method<"hasStrings">([](Pasteboard) { return Shared().text.has_value(); });
    pasteboard.Method<"changeCount">([](Pasteboard) { return Shared().changes; });
}

void SetPasteboardFile(const std::string &path) {
    Copied &copied = Shared();
    copied.path = path;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return;
    }
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    copied.text.emplace(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(copied.text->data(), bytes.data(), copied.text->size() * sizeof(char16_t));
}

} // namespace sim
