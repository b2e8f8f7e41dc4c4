// What the phone does and keeps: time, notifications, its look, pictures, haptics.

#include "apple/foundation/notifications.hpp"
#include "driver/notifications.hpp"
#include "driver/subjects/subjects.hpp"
#include "driver/view_properties.hpp"
#include "render/album.hpp"
#include "runtime/clock.hpp"
#include "runtime/failures.hpp"
#include "script/values.hpp"
#include "uikit/color.hpp"
#include "uikit/haptics.hpp"
#include "uikit/image.hpp"
#include "uikit/screenshot.hpp"

#include <filesystem>

namespace sim::driver {
namespace {

void DoWait(Session &, WordReader &words) {
    const double seconds = words.Number("seconds");
    words.End();
    if (!(seconds >= 0 && seconds <= 1e9)) {
        words.Fail("time cannot move by that");
    }
    clock::Advance(seconds);
}

void DoNotify(Session &, WordReader &words) {
    const ns::String name = script::MakeString(words.Next("the notification's name").text);
    words.End();
    ns::NotificationCenter::defaultCenter().postNotificationName(name, nullptr);
}

/// fail NAME|nothing
void DoFail(Session &, WordReader &words) {
    const bool nothing = words.Take("nothing");
    bool known = nothing;
    for (const FailureRow &row : Failures()) {
        if (nothing || words.Take(row.name)) {
            SetFailing(row.failure, !nothing);
            known = true;
        }
    }
    if (!known) {
        std::string names = "nothing";
        for (const FailureRow &row : Failures()) {
            names += std::string(", ") + row.name;
        }
        words.Fail("expected what fails: " + names);
    }
}

void DoAppearance(Session &, WordReader &words) {
    const bool dark = words.Take("dark");
    if (!dark) {
        words.Expect("light");
    }
    SetDarkAppearance(dark);
}

void DoPicture(Session &session, WordReader &words) {
    const std::string name = words.Next("the picture's name").text;
    words.End();
    const std::filesystem::path directory = session.options.pictures;
    std::error_code ignored;
    std::filesystem::create_directories(directory, ignored);
    const std::string path = (directory / (name + ".png")).string();
    if (!WriteScreenshot(path)) {
        words.Fail("cannot write " + path);
    }
    Say({Bare("picture"), Bare(name)});
}

/// album N at X Y
Answer AskPixel(WordReader &words) {
    const long number = words.Integer("which picture");
    words.Expect("at");
    const double x = words.Number("x");
    const double y = words.Number("y");
    if (number < 1 || number > std::ssize(AlbumPictures())) {
        return {};
    }
    const std::optional<std::uint32_t> pixel = PixelAt(AlbumPictures()[static_cast<std::size_t>(number - 1)], x, y);
    if (!pixel) {
        return {};
    }
    const auto part = [&](int shift) { return static_cast<double>(*pixel >> shift & 0xFF) / 0xFF; };
    const double alpha = part(24);
    const double most = alpha > 0 ? alpha : 1;
    return {{Bare(Hex({part(16) / most, part(8) / most, part(0) / most, alpha})), Bare(alpha)}};
}

/// album | album N at X Y
Answer AskAlbum(Session &, WordReader &words) {
    if (words.SeesNumber()) {
        return AskPixel(words);
    }
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

constexpr Command kCommands[] = {
    {"wait", &DoWait},
    {"notify", &DoNotify},
    {"fail", &DoFail, When::kBeforeLaunchToo},
    {"appearance", &DoAppearance, When::kBeforeLaunchToo},
    {"picture", &DoPicture},
};

constexpr Query kQueries[] = {
    {"album", &AskAlbum},
    {"contexts", [](Session &, WordReader &) -> Answer { return {{Bare(OpenImageContexts())}}; }},
    {"haptics", &AskHaptics},
    {"notifications",
     [](Session &, WordReader &words) -> Answer {
         return {{Bare(NotificationCount(words.Name("the notification's name")))}};
     }},
    {"time", [](Session &, WordReader &) -> Answer { return {{Bare(clock::Now())}}; }},
};

} // namespace

constinit const Subject kPhone{kCommands, kQueries};

} // namespace sim::driver
