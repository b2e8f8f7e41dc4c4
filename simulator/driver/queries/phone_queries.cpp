// What the phone keeps: preferences, the log among them, pasteboard, album, haptics, notifications, time.

#include "apple/foundation/user_defaults.hpp"
#include "driver/notifications.hpp"
#include "driver/queries/queries.hpp"
#include "render/album.hpp"
#include "runtime/clock.hpp"
#include "script/values.hpp"
#include "uikit/haptics.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

using script::Answer;
using script::Bare;
using script::Fact;
using script::WordReader;

ns::UserDefaults Defaults() {
    return ns::UserDefaults::standardUserDefaults();
}

std::string LogText() {
    return script::TextOf(Defaults().stringForKey("Corvel.debug.logBuffer"_ns));
}

/// A line without the date in brackets that begins it. A date has a colon; the tags of messages have none.
std::string_view WithoutDate(std::string_view line) {
    const std::size_t end = line.find("] ");
    const bool dated = line.starts_with('[') && end != std::string_view::npos &&
                       line.substr(0, end).find(':') != std::string_view::npos;
    return dated ? line.substr(end + 2) : line;
}

} // namespace

Answer AskPreference(Session &, WordReader &words) {
    const std::string &key = words.Next("a key").text;
    const ns::Object value = Defaults().objectForKey(script::MakeString(key));
    return value ? Answer{script::DescribeValue(value)} : Answer{};
}

Answer AskPreferences(Session &, WordReader &words) {
    const std::string prefix = words.AtEnd() ? "" : words.Next("a prefix").text;
    const ns::Dictionary all = Defaults().dictionaryRepresentation();
    const ns::Array keys = all.allKeys();
    Answer answer;
    for (unsigned long i = 0; i < keys.count(); ++i) {
        const ns::Object key = keys.objectAtIndex(i);
        const std::string name = script::TextOf(objc::As<ns::String>(key));
        if (name.starts_with(prefix)) {
            Fact fact{Bare(name)};
            const Fact value = script::DescribeValue(all.objectForKey(key));
            fact.insert(fact.end(), value.begin(), value.end());
            answer.push_back(std::move(fact));
        }
    }
    std::ranges::sort(answer, {}, [](const Fact &fact) { return fact.front().text; });
    return answer;
}

Answer AskLog(Session &, WordReader &words) {
    if (words.Take("length")) {
        const auto length = Defaults().stringForKey("Corvel.debug.logBuffer"_ns).length();
        return {{Bare(std::to_string(length))}};
    }
    const std::string log = LogText();
    std::string_view left = log;
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

Answer AskAlbum(Session &, WordReader &) {
    Answer answer;
    for (const AlbumPicture &picture : AlbumPictures()) {
        answer.push_back({Bare(picture.width), Bare(picture.height), Bare("scale"), Bare(picture.scale)});
    }
    return answer;
}

Answer AskHaptics(Session &, WordReader &) {
    constexpr const char *kStyles[] = {"light", "medium", "heavy", "soft", "rigid"};
    Answer answer;
    for (const HapticImpact &impact : HapticImpacts()) {
        const bool known = impact.style >= 0 && impact.style < std::ssize(kStyles);
        answer.push_back({Bare(known ? kStyles[impact.style] : "unknown"), Bare("at"), Bare(impact.time),
                          Bare(impact.prepared ? "prepared" : "unprepared")});
    }
    return answer;
}

Answer AskNotifications(Session &, WordReader &words) {
    return {{Bare(std::to_string(NotificationCount(words.Name("the notification's name"))))}};
}

Answer AskTime(Session &, WordReader &) {
    return {{Bare(clock::Now())}};
}

} // namespace sim::driver
