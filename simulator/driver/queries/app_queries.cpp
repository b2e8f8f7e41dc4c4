// The host and the library's exported functions.

#include "driver/queries/queries.hpp"
#include "script/values.hpp"

namespace sim::driver {
namespace {

using script::Answer;
using script::Bare;
using script::WordReader;

/// A query of the host under a name of its own.
Answer AskHostAs(Session &session, const std::string &name, WordReader &words) {
    std::vector<script::Word> asked{Bare(name)};
    const std::span<const script::Word> rest = words.Rest();
    asked.insert(asked.end(), rest.begin(), rest.end());
    WordReader reader(words.place(), asked);
    Answer answer = session.host->Query(reader);
    reader.End();
    return answer;
}

} // namespace

Answer AskHost(Session &session, WordReader &words) {
    return session.host->Query(words);
}

Answer AskComments(Session &session, WordReader &words) {
    return AskHostAs(session, "comments", words);
}

Answer AskComment(Session &session, WordReader &words) {
    return AskHostAs(session, "comment", words);
}

Answer AskCall(Session &session, WordReader &words) {
    const std::string name = words.Name("an exported function");
    void *function = session.library.Function(name);
    if (function == nullptr) {
        words.Fail("the library exports no " + name);
    }
    if (name.ends_with("_IsReady")) {
        return {{Bare(reinterpret_cast<bool (*)()>(function)() ? "true" : "false")}};
    }
    if (name.ends_with("_SendMessage")) {
        const ns::Object text = script::ReadValue(words);
        reinterpret_cast<void (*)(objc::id)>(function)(text.pointer);
    } else {
        reinterpret_cast<void (*)()>(function)();
    }
    return {};
}

} // namespace sim::driver
