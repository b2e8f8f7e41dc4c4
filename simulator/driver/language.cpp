#include "driver/language.hpp"

#include "driver/subjects/subjects.hpp"
#include "script/vocabulary.hpp"

namespace sim::driver {
namespace {

constexpr const Subject *kSubjects[] = {&kApp,           &kFacts,  &kPasteboard, &kPhone,     &kPreferences,
                                        &kPresentations, &kScenes, &kScreen,     &kScrolling, &kTouches,
                                        &kTyping,        &kViews,  &kWear};

/// The row of that name in the tables of all subjects; null when there is none.
template <class Row> const Row *Find(std::span<const Row> Subject::*table, const std::string &name) {
    for (const Subject *subject : kSubjects) {
        for (const Row &row : subject->*table) {
            if (name == row.name) {
                return &row;
            }
        }
    }
    return nullptr;
}

/// A query in the simulator's own words.
Answer AskOwn(Session &session, WordReader &words) {
    const std::string name = words.Name("a query");
    const Query *query = Find(&Subject::queries, name);
    if (query == nullptr) {
        words.Fail("unknown query " + name);
    }
    Answer answer = query->ask(session, words);
    words.End();
    return answer;
}

} // namespace

void Execute(Session &session, WordReader &words) {
    const std::string name = words.Name("a command");
    const Command *command = Find(&Subject::commands, name);
    if (command == nullptr) {
        words.Fail("unknown command " + name);
    }
    if (!session.launched && command->when == When::kAfterLaunch) {
        words.Fail(name + " needs the app, which 'setup' comes before");
    }
    command->execute(session, words);
    words.End();
}

Answer Ask(Session &session, WordReader &words) {
    std::optional<std::vector<Word>> meaning = script::TheVocabulary().Take("query", words);
    if (!meaning) {
        return AskOwn(session, words);
    }
    script::Append(*meaning, words.Rest());
    WordReader asked(words.place(), *meaning);
    return AskOwn(session, asked);
}

} // namespace sim::driver
