#include "driver/runner.hpp"

#include "driver/language.hpp"
#include "driver/notifications.hpp"
#include "hosts/invocation.hpp"
#include "hosts/plan.hpp"
#include "hosts/record.hpp"
#include "objc/guard.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/clock.hpp"
#include "runtime/library_deeds.hpp"
#include "script/values.hpp"
#include "uikit/application.hpp"

#include <chrono>
#include <cstdio>

namespace sim::driver {
namespace {

using script::Line;
using script::ScriptError;

/// What the end of a run-loop turn does.
void EndTurn() {
    AsHost([] {
        clock::Drain();
        LayoutWindows();
    });
}

void SayComment(const hosts::Comment &comment, std::size_t number) {
    Fact fact{Bare("comment " + std::to_string(number) + ":")};
    Append(fact, hosts::DescribeComment(comment));
    Say(fact);
}

void Launch(Session &session, const script::Place &place) {
    hosts::RegisterLiveRoom();
    session.host->Register();
    CountNotifications();
    hosts::TheRecord().listeners.emplace_back(&SayComment);
    session.launched = true;
    if (session.options.library != "none") {
        std::string error;
        WatchLibrary(session.options.library);
        AsHost([&] { error = session.library.Inject(session.options.library); });
        if (!error.empty()) {
            throw ScriptError(place, error);
        }
    }
    AsHost([&session] {
        if (session.firstSceneState) {
            session.host->Launch(MakeWindowScene(*session.firstSceneState));
        }
    });
    session.rules.Begin(session.library, session.options.host);
    EndTurn();
    Say({Bare("launch"), Bare(session.options.host)});
}

/// The first line that does not set up finds the app running.
void LaunchBefore(Session &session, const Line &line) {
    if (!session.launched && line.words.front() != Bare("setup")) {
        Launch(session, line.place);
    }
}

/// Names a line that kept the app busy for so long that its user would take it for hung.
void SayIfSlow(const script::Place &place, std::chrono::steady_clock::duration took) {
    constexpr std::chrono::seconds kSlow(2);
    if (took > kSlow) {
        std::fprintf(stderr, "%s:%d: slow: %.1f s\n", place.file.c_str(), place.line,
                     std::chrono::duration<double>(took).count());
    }
}

/// Plays a line, or passes it over with a remark when it makes no sense.
void PlayLeniently(Session &session, const Line &line) {
    LaunchBefore(session, line); // without the library nothing makes sense
    const auto begin = std::chrono::steady_clock::now();
    try {
        Play(session, line);
    } catch (const ScriptError &error) {
        std::fprintf(stderr, "passed over: %s\n", error.what());
        if (session.launched) {
            EndTurn(); // for what the line had done before
        }
    }
    SayIfSlow(line.place, std::chrono::steady_clock::now() - begin);
}

} // namespace

void AsHost(const std::function<void()> &work) {
    std::string reason;
    const bool returned = objc::Guard(
        [&] {
            const AutoreleasePool pool;
            work();
        },
        [&reason](objc::Object raised) { reason = script::TextOf(objc::As<ns::String>(raised)); });
    if (!returned) {
        throw hosts::ReachedHost(reason);
    }
}

void Play(Session &session, const Line &line) {
    LaunchBefore(session, line);
    WordReader words(line.place, line.words);
    if (words.Take("setup") && session.launched) {
        words.Fail("setup comes before everything else");
    }
    AsHost([&] { Execute(session, words); });
    if (session.launched) {
        EndTurn();
    }
}

void Say(const Fact &fact) {
    std::printf("%s\n", script::Render(fact).c_str());
}

Outcome Run(Session &session, const std::vector<Line> &lines) {
    script::Place place{session.options.script, 0};
    try {
        while (session.progress.line < lines.size()) {
            const Line &line = lines[session.progress.line++];
            place = line.place;
            if (session.options.isLenient) {
                PlayLeniently(session, line);
            } else {
                Play(session, line);
            }
            session.rules.Check(line);
        }
        if (!session.launched) {
            Launch(session, place);
        }
        hosts::ThePlan().EndThrowing();
    } catch (const ScriptError &error) {
        std::fflush(stdout);
        std::fprintf(stderr, "%s\n", error.what());
        return Outcome::kError;
    } catch (const hosts::ReachedHost &error) {
        std::printf("%s:%d: exception reached the host: %s\n", place.file.c_str(), place.line, error.what());
        return Outcome::kExceptionReachedHost;
    } catch (const BrokenRule &error) {
        std::printf("%s:%d: broken: %s\n", place.file.c_str(), place.line, error.what());
        return Outcome::kRuleBroken;
    }
    const auto &[line, expectations, failures, ownsState] = session.progress;
    if (expectations > 0) {
        std::printf("%d of %d expectations held\n", expectations - failures, expectations);
    }
    return failures == 0 ? Outcome::kHeld : Outcome::kFailed;
}

} // namespace sim::driver
