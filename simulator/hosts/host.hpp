#pragma once
// A simulated app: its private classes, its screen, and what scripts can make it do.

#include "apple/uikit/window.hpp"
#include "hosts/live_room.hpp"
#include "script/expectation.hpp"

#include <memory>
#include <span>
#include <string>

namespace sim::hosts {

/// A kind of objects by the name that scripts give it.
struct Kind {
    const char *name;
    const char *className;
};

/// The class of a kind; null for a kind that is not there.
const char *ClassOf(std::span<const Kind> kinds, const std::string &kind);

class Host {
  public:
    Host() = default;
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;
    virtual ~Host() = default;

    /// Registers the app's private classes, as the plan has them. Before the library is injected.
    virtual void RegisterClasses() = 0;
    /// Draws the app's first screen into the scene's first window.
    void Launch(ui::WindowScene scene);
    /// Carries out one `host …` command and gives what it has to say (may be nothing). Throws ScriptError for words
    /// that it does not know, ReachedHost for an exception that came out of the host's code unasked.
    script::Fact Event(script::WordReader &words);
    /// Carries out one of the commands that shape the app before it is launched.
    static void Shape(script::WordReader &words);
    /// Answers a `host …` query.
    script::Answer Query(script::WordReader &words);

  protected:
    /// What the app's screen says, and its accent colour.
    virtual LiveRoomLook Look() const = 0;
    /// The class of which `host new KIND` makes an object; null for a kind that the app does not have.
    virtual const char *ClassOfKind(const std::string &kind) const = 0;
    /// The app's own events; false when the words are none of them.
    virtual bool OwnEvent(script::WordReader &words, script::Fact &fact) = 0;
    /// Makes and keeps an object of a kind; nil while its class is missing.
    ns::Object Make(const std::string &kind);
    LiveRoom &room() {
        return room_;
    }

  private:
    /// move VIEW to screen|VIEW|nowhere.
    script::Fact Move(script::WordReader &words);

    LiveRoom room_;
};

/// A host by its name, and the bundle identifier that it has on the phone.
struct HostEntry {
    const char *name;
    const char *bundleIdentifier;
    std::unique_ptr<Host> (*make)();
};

/// Every host, by name.
std::span<const HostEntry> Hosts();

} // namespace sim::hosts
