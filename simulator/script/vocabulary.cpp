#include "script/vocabulary.hpp"

#include "script/loader.hpp"

#include <algorithm>

namespace sim::script {

Vocabulary &TheVocabulary() {
    static Vocabulary vocabulary;
    return vocabulary;
}

void Vocabulary::Load(const std::string &file) {
    for (const Line &line : LoadScript(file)) {
        WordReader words(line.place, line.words);
        const std::string kind = words.Name("target or query");
        if (kind != "target" && kind != "query") {
            words.Fail("expected target or query, not " + kind);
        }
        Definition &definition = definitions_[{kind, words.Name("the word to define")}];
        while (!words.Take("means")) {
            definition.parameters.push_back(words.Name("a parameter, or means"));
        }
        const std::span<const Word> meaning = words.Rest();
        definition.meaning.assign(meaning.begin(), meaning.end());
    }
}

std::optional<std::vector<Word>> Vocabulary::Take(const std::string &kind, WordReader &words) const {
    const auto found = std::ranges::find_if(
        definitions_, [&](const auto &entry) { return entry.first.first == kind && words.Sees(entry.first.second); });
    if (found == definitions_.end()) {
        return std::nullopt;
    }
    const auto &[name, definition] = *found;
    words.Expect(name.second);
    std::map<std::string, Word> given;
    for (const std::string &parameter : definition.parameters) {
        given[parameter] = words.Next(parameter + " of " + name.second);
    }
    std::vector<Word> meaning;
    for (const Word &word : definition.meaning) {
        const auto value = given.find(word.text);
        meaning.push_back(value != given.end() && !word.quoted ? value->second : word);
    }
    return meaning;
}

} // namespace sim::script
