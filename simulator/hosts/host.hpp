#pragma once
// A simulated app: its private classes, its screen, and what scripts can make it do.

#include "hosts/live_room.hpp"
#include "script/words.hpp"

#include <functional>
#include <map>
#include <memory>

namespace sim::hosts {

/// A kind of objects by the name that scripts give it.
struct Kind {
    const char *name;
    const char *className;
    bool ofRoom = false; // the app lets go of the last one, and takes it off the screen, when it leaves the room
};

class Host {
  public:
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;
    virtual ~Host() = default;

    /// Registers the app's private classes, as the plan has them. Before the library is injected. Throws ScriptError
    /// for what the plan names and the app does not have.
    void Register();
    /// Draws the app's first screen into the scene's first window.
    void Launch(ui::WindowScene scene);
    /// Carries out one `host …` command and gives what it has to say (may be nothing). Throws ScriptError for words
    /// that it does not know, ReachedHost for an exception that came out of the host's code unasked.
    Fact Event(WordReader &words);
    /// Carries out one of the commands that shape the app before it is launched.
    static void Shape(WordReader &words);
    /// Answers a `host …` query.
    static Answer Query(WordReader &words);

  protected:
    virtual void RegisterClasses() = 0;
    /// An event reads its own words and gives what it has to say.
    using EventFunction = std::function<Fact(WordReader &words)>;

    Host(LiveRoomLook look, std::span<const Kind> kinds);
    /// Adds an event of the app's own.
    void On(const char *name, EventFunction event) {
        events_[name] = std::move(event);
    }
    /// Makes and keeps an object of a kind; nil while its class is missing. Held by the result as well: any method of
    /// the app may have it let go of.
    objc::Ref<ns::Object> Make(const std::string &kind);
    LiveRoom &room() {
        return room_;
    }

  private:
    /// move VIEW to screen|VIEW|nowhere.
    Fact Move(WordReader &words);
    /// The app keeps nothing of a room that it has left.
    void Leave();

    std::span<const Kind> kinds_;
    LiveRoom room_;
    std::map<std::string, EventFunction> events_;
};

/// A host by its name, and the bundle identifier that it has on the phone.
struct HostEntry {
    const char *name;
    const char *bundleIdentifier;
    std::unique_ptr<Host> (*make)();
};

/// Every host, by name.
std::span<const HostEntry> Hosts();

/// Makes the app of a class that need be known to its own file only: app.hpp defines this, that file instantiates it.
template <class App> std::unique_ptr<Host> MakeHost();

} // namespace sim::hosts
