// The app's preferences, texts of many lines among them.

#include "apple/foundation/user_defaults.hpp"
#include "driver/subjects/subjects.hpp"
#include "script/values.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

ns::UserDefaults Defaults() {
    return ns::UserDefaults::standardUserDefaults();
}

ns::String ReadKey(WordReader &words) {
    return script::MakeString(words.Next("a key").text);
}

void DoSet(Session &, WordReader &words) {
    const ns::String key = ReadKey(words);
    const ns::Object value = script::ReadValue(words);
    words.End();
    Defaults().setObject(value, key);
    Defaults().synchronize();
}

void DoUnset(Session &, WordReader &words) {
    const ns::String key = ReadKey(words);
    words.End();
    Defaults().removeObjectForKey(key);
    Defaults().synchronize();
}

Answer AskPreference(Session &, WordReader &words) {
    const ns::Object value = Defaults().objectForKey(ReadKey(words));
    return value ? Answer{script::DescribeValue(value)} : Answer{};
}

Answer AskPreferences(Session &, WordReader &words) {
    const std::string prefix = words.AtEnd() ? "" : words.Next("a prefix").text;
    const ns::Dictionary all = Defaults().dictionaryRepresentation();
    Answer answer;
    for (const ns::Object key : all.allKeys()) {
        const std::string name = script::TextOf(objc::As<ns::String>(key));
        if (name.starts_with(prefix)) {
            answer.push_back({Bare(name)});
            Append(answer.back(), script::DescribeValue(all.objectForKey(key)));
        }
    }
    std::ranges::sort(answer, {}, [](const Fact &fact) { return fact.front().text; });
    return answer;
}

/// A line without the date in brackets that begins it. A date has a colon; other words in brackets have none.
std::string_view WithoutDate(std::string_view line) {
    const std::size_t end = line.find("] ");
    const bool dated = line.starts_with('[') && end != std::string_view::npos &&
                       line.substr(0, end).find(':') != std::string_view::npos;
    return dated ? line.substr(end + 2) : line;
}

/// lines KEY [length|last]
Answer AskLines(Session &, WordReader &words) {
    const ns::String value = Defaults().stringForKey(ReadKey(words));
    if (words.Take("length")) {
        return {{Bare(value.length())}};
    }
    const std::string text = script::TextOf(value);
    std::string_view left = text;
    Answer answer;
    while (!left.empty()) {
        const std::size_t end = std::min(left.find('\n'), left.size());
        answer.push_back({script::Text(WithoutDate(left.substr(0, end)))});
        left.remove_prefix(std::min(end + 1, left.size()));
    }
    if (words.Take("last") && !answer.empty()) {
        answer.erase(answer.begin(), answer.end() - 1);
    }
    return answer;
}

constexpr Command kCommands[] = {
    {"set", &DoSet, When::kBeforeLaunchToo},
    {"unset", &DoUnset, When::kBeforeLaunchToo},
};

constexpr Query kQueries[] = {{"pref", &AskPreference}, {"prefs", &AskPreferences}, {"lines", &AskLines}};

} // namespace

constinit const Subject kPreferences{kCommands, kQueries};

} // namespace sim::driver
