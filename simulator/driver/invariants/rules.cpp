#include "driver/invariants/rules.hpp"

#include "script/loader.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

struct RuleKind {
    const char *name;
    std::unique_ptr<Invariant> (*make)(WordReader &words);
};

constexpr RuleKind kKinds[] = {
    {"single", &MakeSingle},     {"above", &MakeAbove}, {"through", &MakeThrough},
    {"released", &MakeReleased}, {"keys", &MakeKeys},   {"sends", &MakeSends},
};

} // namespace

void Rules::Load(const std::string &file) {
    for (const script::Line &line : script::LoadScript(file)) {
        WordReader words(line.place, line.words);
        const std::string name = words.Name("a rule");
        const auto *const kind = std::ranges::find(kKinds, name, &RuleKind::name);
        if (kind == std::end(kKinds)) {
            words.Fail("unknown rule " + name);
        }
        rules_.push_back({script::Render(line.words), kind->make(words)});
        words.End();
    }
}

void Rules::Begin(const Library &library, const std::string &host) {
    for (const Rule &rule : rules_) {
        rule.invariant->Begin(library, host);
    }
}

void Rules::Check(const script::Line &line) const {
    for (const Rule &rule : rules_) {
        if (const std::string wrong = rule.invariant->Broken(line); !wrong.empty()) {
            throw BrokenRule(rule.text + ": " + wrong);
        }
    }
}

} // namespace sim::driver
