#include "hosts/plain/plain.hpp"

namespace sim::hosts {
namespace {

class Plain final : public Host {
  public:
    void RegisterClasses() override {}

  private:
    LiveRoomLook Look() const override {
        return {.appName = "直播", .placeholder = "说点什么…", .anchor = "主播", .accent = 0x3478F6};
    }
    const char *ClassOfKind(const std::string &) const override {
        return nullptr;
    }
    bool OwnEvent(script::WordReader &words, script::Fact &) override {
        if (words.Take("enter")) {
            room().Enter(words.QuotedText("the room"));
            return true;
        }
        if (words.Take("leave")) {
            room().Leave();
            return true;
        }
        return false;
    }
};

} // namespace

std::unique_ptr<Host> MakePlain() {
    return std::make_unique<Plain>();
}

} // namespace sim::hosts
