#include "window/live_run.hpp"

#include "apple/uikit/pasteboard.hpp"
#include "driver/language.hpp"
#include "driver/runner.hpp"
#include "hosts/invocation.hpp"
#include "hosts/record.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/user_defaults.hpp"
#include "script/loader.hpp"
#include "script/text.hpp"
#include "script/values.hpp"

namespace sim::window {
namespace {

using script::Line;

constexpr double kMillisecond = 0.001;

/// The words of a value as a script writes them, in which the kind of a collection is said.
Fact AsWritten(ns::Object value) {
    Fact written;
    for (const Word &word : script::DescribeValue(value)) {
        if (word == Bare("[")) {
            written.push_back(Bare("array"));
        } else if (word == Bare("{")) {
            written.push_back(Bare("dict"));
        }
        written.push_back(word);
    }
    return written;
}

/// The lines that bring a fresh phone to what this one keeps.
std::string WhatIsKept() {
    const AutoreleasePool pool;
    std::string lines;
    const ns::Dictionary stored = StoredPreferences();
    for (const ns::Object key : stored.allKeys()) {
        lines += "setup set " + script::Quoted(script::TextOf(objc::As<ns::String>(key))) + " " +
                 script::Render(AsWritten(stored.objectForKey(key))) + "\n";
    }
    if (const ns::String copied = ui::Pasteboard::generalPasteboard().string()) {
        lines += "setup pasteboard " + script::Quoted(script::TextOf(copied)) + "\n";
    }
    return lines;
}

/// What the comments of the run are expected to be when it is played again.
std::string Expectations() {
    std::string lines = "expect count comments is " + std::to_string(LiveRun::CommentCount()) + "\n";
    std::size_t number = 0;
    for (const hosts::Comment &comment : hosts::TheRecord().comments) {
        lines += "expect comment " + std::to_string(++number) + " text is " + script::Render(comment.text) + "\n";
    }
    return lines;
}

} // namespace

LiveRun::LiveRun(driver::Session &session) : session_(session), setup_(WhatIsKept()) {}

void LiveRun::Do(const std::string &line) {
    if (ended_) {
        return;
    }
    try {
        for (const Line &words : script::Lex(line, "")) {
            Carry(words);
        }
    } catch (const script::ScriptError &error) {
        complaint_ = error.what();
        complaint_.erase(0, complaint_.find(": ") + 2); // the place, which is no file's
    }
}

void LiveRun::DoAll(const std::string &file) {
    for (const Line &line : script::LoadScript(file)) {
        if (!ended_) {
            Carry(line);
        }
    }
}

void LiveRun::Pass(int milliseconds) {
    Survive([&] {
        driver::Play(session_, {{}, {Bare("wait"), Bare(milliseconds * kMillisecond)}});
        passed_ += milliseconds;
    });
}

void LiveRun::Watch(const std::function<void()> &work) {
    Survive([&] { driver::AsHost(work); });
}

void LiveRun::Survive(const std::function<void()> &work) {
    if (ended_) {
        return;
    }
    try {
        work();
    } catch (const hosts::ReachedHost &error) {
        ended_ = true;
        complaint_ = std::string("exception reached the host: ") + error.what();
    }
}

Answer LiveRun::Ask(const std::string &query) {
    const AutoreleasePool pool;
    try {
        const std::vector<Line> lines = script::Lex(query, "");
        script::WordReader words(lines.front().place, lines.front().words);
        return driver::Ask(session_, words);
    } catch (const script::ScriptError &) {
        return {};
    }
}

void LiveRun::Carry(const Line &line) {
    Survive([&] { driver::Play(session_, line); });
    // Also what ended the app belongs to the script: it shows how.
    const std::string text = script::Render(line.words);
    if (session_.launched) {
        Keep(text);
    } else {
        setup_ += text + "\n";
    }
}

void LiveRun::Keep(const std::string &line) {
    if (passed_ > 0) {
        done_ += "wait " + script::FormatNumber(static_cast<double>(passed_) * kMillisecond) + "\n";
        passed_ = 0;
    }
    done_ += line + "\n";
}

std::string LiveRun::Script() const {
    const driver::Options &options = session_.options;
    std::string text = "# host: " + options.host + "\n";
    if (!options.bundle.empty()) {
        text += "# bundle: " + options.bundle + "\n";
    }
    if (ended_) {
        text += "# exit: 3\n";
    }
    text += "# What was done in the window.\n" + setup_ + done_;
    if (passed_ > 0) {
        text += "wait " + script::FormatNumber(static_cast<double>(passed_) * kMillisecond) + "\n";
    }
    return text + Expectations();
}

std::size_t LiveRun::CommentCount() {
    return hosts::TheRecord().comments.size();
}

} // namespace sim::window
