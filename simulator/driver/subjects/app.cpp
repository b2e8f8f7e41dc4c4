// The simulated app, the comments that it received, the injected library's functions, and the next launch.

#include "apple/foundation/user_defaults.hpp"
#include "driver/subjects/subjects.hpp"
#include "hosts/chained_calls.hpp"
#include "hosts/plan.hpp"
#include "hosts/record.hpp"
#include "runtime/library_deeds.hpp"
#include "script/values.hpp"

#include <utility>

namespace sim::driver {
namespace {

/// let SELECTOR do|once COMMAND…: the app's methods of the selector carry the command out, each time or the first time,
/// before they do what they do themselves.
void Let(Session &session, const std::string &selector, bool once, WordReader &words) {
    const std::span<const Word> rest = words.Rest();
    if (rest.empty()) {
        words.Fail("expected a command");
    }
    const std::vector<Word> command(rest.begin(), rest.end());
    hosts::ChainWork(selector, [&session, place = words.place(), command, once, done = false]() mutable {
        if (!once || !std::exchange(done, true)) {
            WordReader again(place, command);
            Execute(session, again);
        }
    });
}

void DoHost(Session &session, WordReader &words) {
    if (!session.launched) {
        hosts::Host::Shape(words);
        return;
    }
    WordReader whole = words;
    if (words.Take("let")) {
        const std::string selector = hosts::ReadSelector(words);
        const bool once = words.Take("once");
        if (once || words.Take("do")) {
            Let(session, selector, once, words);
            return;
        }
        words = whole;
    }
    const Fact said = session.host->Event(words);
    if (!said.empty()) {
        Fact fact{Bare("host " + script::Render(whole.Rest()) + ":")};
        Append(fact, said);
        Say(fact);
    }
}

Answer AskComments(Session &, WordReader &) {
    Answer answer;
    for (const hosts::Comment &comment : hosts::TheRecord().comments) {
        answer.push_back(hosts::DescribeComment(comment));
    }
    return answer;
}

/// comment N|last [FIELD]
Answer AskComment(Session &, WordReader &words) {
    const std::vector<hosts::Comment> &comments = hosts::TheRecord().comments;
    const long number = words.Take("last") ? std::ssize(comments) : words.Integer("the number of a comment, or last");
    if (number < 1 || number > std::ssize(comments)) {
        words.Rest();
        return {};
    }
    const hosts::Comment &comment = comments[static_cast<std::size_t>(number - 1)];
    return {words.AtEnd() ? hosts::DescribeComment(comment) : hosts::DescribeField(comment, words)};
}

/// Sends a class method of NSObject, which every object inherits, as a control wired to it would.
void SendAction(WordReader &words) {
    const std::string name = words.Name("a handler of the library");
    const ns::Object target{objc::AsObject(objc::ClassOf<ns::Object>())};
    const objc::SEL action = sel_registerName(name.c_str());
    if (name.ends_with(':') || !target.respondsToSelector(action)) {
        words.Fail("the library has no handler " + name + " without a sender");
    }
    words.End();
    target.performSelector(action);
}

/// FUNCTION [VALUE]: what the exported function answers. It may take no argument and answer nothing, for a call may
/// hand over more than is taken, and nobody looks at what was never there.
bool Call(Session &session, WordReader &words) {
    const std::string name = words.Name("an exported function");
    void *const function = session.library.Function(name);
    if (function == nullptr) {
        words.Fail("the library exports no " + name);
    }
    const ns::Object value = words.AtEnd() ? ns::Object{} : script::ReadValue(words);
    words.End();
    return reinterpret_cast<unsigned char (*)(objc::id)>(function)(value.pointer) != 0;
}

void DoCall(Session &session, WordReader &words) {
    if (words.Take("action")) {
        SendAction(words);
    } else {
        Call(session, words);
    }
}

/// The name of an app to simulate.
std::string ReadHost(WordReader &words) {
    try {
        return FindHost(words.Name("a host")).name;
    } catch (const UsageError &error) {
        words.Fail(error.what());
    }
}

/// relaunch [killed] [--host NAME] [--bundle ID]
void DoRelaunch(Session &session, WordReader &words) {
    Options options = session.options;
    const bool killed = words.Take("killed");
    while (!words.AtEnd()) {
        if (words.Take("--host")) {
            options.host = ReadHost(words);
            options.bundle.clear();
        } else {
            words.Expect("--bundle");
            options.bundle = words.Name("a bundle identifier");
        }
    }
    words.End();
    hosts::ThePlan().EndThrowing();
    if (!killed) { // an app that is closed has the time to store what it wrote
        ns::UserDefaults::standardUserDefaults().synchronize();
    }
    Say({Bare("relaunch")});
    Relaunch(options, session.progress);
    words.Fail("cannot start again");
}

/// deeds [KIND]: what the library has done outside of itself.
Answer AskDeeds(Session &, WordReader &words) {
    const std::string kind = words.AtEnd() ? "" : words.Name("a kind of deeds");
    Answer answer;
    for (const Deed &deed : LibraryDeeds()) {
        if (kind.empty() || kind == deed.kind) {
            answer.push_back({Bare(deed.kind), script::Text(deed.what)});
        }
    }
    return answer;
}

constexpr Command kCommands[] = {
    {"host", &DoHost, When::kBeforeLaunchToo},
    {"call", &DoCall},
    {"relaunch", &DoRelaunch},
};

constexpr Query kQueries[] = {
    {"host", [](Session &, WordReader &words) { return hosts::Host::Query(words); }},
    {"comments", &AskComments},
    {"deeds", &AskDeeds},
    {"comment", &AskComment},
    {"call", [](Session &session, WordReader &words) -> Answer { return {{Bare(Call(session, words))}}; }},
};

} // namespace

constinit const Subject kApp{kCommands, kQueries};

} // namespace sim::driver
