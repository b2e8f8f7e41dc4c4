#include "script/loader.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sys/mman.h>
#include <unistd.h>

namespace sim::script {
namespace {

std::string ReadDescriptor(int descriptor) {
    std::string text;
    char buffer[65536];
    for (ssize_t size = 0; (size = read(descriptor, buffer, sizeof buffer)) > 0;) {
        text.append(buffer, static_cast<std::size_t>(size));
    }
    return text;
}

std::string ReadScript(const std::string &file, const Place &wanted) {
    if (file == "-") {
        lseek(STDIN_FILENO, 0, SEEK_SET);
        return ReadDescriptor(STDIN_FILENO);
    }
    std::ifstream stream(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad()) {
        throw ScriptError(wanted, "cannot read " + file);
    }
    return text;
}

void Append(std::vector<Line> &lines, const std::string &file, const Place &wanted, std::vector<std::string> &open) {
    if (std::ranges::find(open, file) != open.end()) {
        throw ScriptError(wanted, file + " includes itself");
    }
    open.push_back(file);
    for (Line &line : Lex(ReadScript(file, wanted), file)) {
        if (line.words.front() != Bare("include")) {
            lines.push_back(std::move(line));
            continue;
        }
        WordReader words(line.place, std::span(line.words).subspan(1));
        const std::string name = words.Next("the file to include").text;
        words.End();
        const std::filesystem::path beside = std::filesystem::path(file).parent_path() / name;
        Append(lines, beside.lexically_normal().string(), line.place, open);
    }
    open.pop_back();
}

} // namespace

std::vector<Line> LoadScript(const std::string &file) {
    std::vector<Line> lines;
    std::vector<std::string> open;
    Append(lines, file, {file, 0}, open);
    return lines;
}

void KeepStandardInput() {
    if (lseek(STDIN_FILENO, 0, SEEK_SET) >= 0) {
        return;
    }
    const std::string text = ReadDescriptor(STDIN_FILENO);
    const int copy = memfd_create("script", 0);
    for (std::size_t written = 0; copy >= 0 && written < text.size();) {
        const ssize_t size = write(copy, text.data() + written, text.size() - written);
        if (size <= 0) {
            break;
        }
        written += static_cast<std::size_t>(size);
    }
    if (copy >= 0) {
        dup2(copy, STDIN_FILENO);
        close(copy);
    }
}

} // namespace sim::script
