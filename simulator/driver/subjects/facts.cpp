// What scripts do with facts.

#include "driver/subjects/subjects.hpp"
#include "runtime/live_objects.hpp"

#include <algorithm>
#include <cstdio>

namespace sim::driver {
namespace {

std::string RenderAnswer(const Answer &answer) {
    std::string text;
    for (const Fact &fact : answer) {
        text += (text.empty() ? "" : "; ") + script::Render(fact);
    }
    return text.empty() ? "absent" : text;
}

void DoPrint(Session &session, WordReader &words) {
    WordReader whole = words;
    const Answer answer = Ask(session, words);
    const std::string query = script::Render(whole.Rest());
    const bool tree = query.starts_with("views"); // its lines stand by themselves, indented
    for (const Fact &fact : answer) {
        std::printf("%s%s%s\n", tree ? "" : query.c_str(), tree ? "" : ": ", script::Render(fact).c_str());
    }
    if (answer.empty()) {
        std::printf("%s: absent\n", query.c_str());
    }
}

void DoExpect(Session &session, WordReader &words) {
    const script::Place place = words.place();
    const bool no = words.Take("no");
    const std::span<const Word> all = words.Rest();
    const auto verb = std::ranges::find_if(all, &script::Expectation::Begins);
    const std::span<const Word> asked(all.begin(), verb);
    WordReader query(place, asked);
    WordReader value(place, std::span<const Word>(verb, all.end()));
    const script::Expectation expectation = script::Expectation::Read(value);
    const Answer answer = Ask(session, query);
    ++session.progress.expectations;
    if (expectation.Holds(answer, session.pointers) == !no) {
        return;
    }
    ++session.progress.failures;
    std::printf("%s:%d: expected %s%s%s, got %s\n", place.file.c_str(), place.line, no ? "no " : "",
                script::Render(asked).c_str(), expectation.Describe().c_str(), RenderAnswer(answer).c_str());
}

constexpr Command kCommands[] = {
    {"print", &DoPrint},
    {"expect", &DoExpect},
    {"echo",
     [](Session &, WordReader &words) {
         const std::span<const Word> rest = words.Rest();
         Say(Fact(rest.begin(), rest.end()));
     },
     When::kBeforeLaunchToo},
};

/// objects CLASS
Answer AskObjects(Session &, WordReader &words) {
    const std::string name = words.Name("a class");
    const objc::Class cls = objc_getClass(name.c_str());
    if (cls == nullptr) {
        words.Fail("there is no class " + name);
    }
    return {{Bare(LiveObjects(cls))}};
}

constexpr Query kQueries[] = {
    {"objects", &AskObjects},
    {"count", [](Session &session, WordReader &words) -> Answer { return {{Bare(Ask(session, words).size())}}; }},
};

} // namespace

constinit const Subject kFacts{kCommands, kQueries};

} // namespace sim::driver
