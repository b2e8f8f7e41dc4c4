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
    EndTurn();
    Say({Bare("launch"), Bare(session.options.host)});
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
    WordReader words(line.place, line.words);
    if (words.Take("setup")) {
        if (session.launched) {
            words.Fail("setup comes before everything else");
        }
    } else if (!session.launched) {
        Launch(session, line.place);
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
            Play(session, line);
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
    }
    const auto &[line, expectations, failures, ownsState] = session.progress;
    if (expectations > 0) {
        std::printf("%d of %d expectations held\n", expectations - failures, expectations);
    }
    return failures == 0 ? Outcome::kHeld : Outcome::kFailed;
}

} // namespace sim::driver
