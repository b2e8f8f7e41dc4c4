// An app with a live room and none of the private classes that adapters look for.

#include "hosts/app.hpp"

namespace sim::hosts {

class Plain final : public Host {
  public:
    Plain() : Host({.appName = "直播", .placeholder = "说点什么…", .anchor = "主播", .accent = 0x3478F6}, {}) {
        On("enter", [this](WordReader &words) -> Fact {
            room().Enter(words.QuotedText("the room"));
            return {};
        });
    }
    void RegisterClasses() override {}
};

template std::unique_ptr<Host> MakeHost<Plain>();

} // namespace sim::hosts
