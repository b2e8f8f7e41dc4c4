#include "hosts/douyin/douyin.hpp"

#include "hosts/douyin/comment_classes.hpp"
#include "hosts/douyin/player_classes.hpp"
#include "hosts/invocation.hpp"
#include "hosts/keyed.hpp"
#include "script/values.hpp"

namespace sim::hosts {
namespace {

using script::Fact;
using script::WordReader;

constexpr Kind kKinds[] = {
    {"fragment", "HTSLiveCommentFragment"},
    {"gift-fragment", "HTSLiveGiftFragment"},
    {"store", "HTSLiveCommentStore"},
    {"gift-store", "HTSLiveGiftStore"},
    {"context", "IESLiveCommentContext"},
    {"model", "IESLiveRoomModel"},
    {"info", "IESLiveRoomInfo"},
    {"preferences", "TVLPlayerItemPreferences"},
    {"configuration", "VeLivePlayerConfiguration"},
    {"preload-preferences", "TVLPlayerPreloadPreferences"},
};

/// What the app itself would keep under a key that a path passes through.
std::string KindUnder(const std::string &key) {
    return key == "roomModel" ? "model" : key == "context" ? "context" : key.ends_with("tore") ? "store" : "info";
}

class Douyin final : public Host {
  public:
    void RegisterClasses() override {
        douyin::RegisterCommentClasses();
        douyin::RegisterPlayerClasses();
    }

  private:
    LiveRoomLook Look() const override {
        return {.appName = "抖音直播", .placeholder = "说点什么…", .anchor = "小鹿的歌房", .accent = 0xFE2C55};
    }

    const char *ClassOfKind(const std::string &kind) const override {
        return ClassOf(kKinds, kind);
    }

    bool OwnEvent(WordReader &words, Fact &fact) override {
        if (words.Take("enter")) {
            fact = Enter(words);
        } else if (words.Take("leave")) {
            Leave();
        } else if (words.Take("give")) {
            Give(words);
        } else {
            return false;
        }
        return true;
    }

    /// enter VALUE|none [at PATH]: a room as the app opens it, its id where the build keeps it.
    Fact Enter(WordReader &words) {
        const bool none = words.Take("none");
        const ns::Object id = none ? ns::Object{} : script::ReadValue(words);
        const std::string path = words.Take("at") ? words.Name("the path of the room id") : "roomModel.identifier";
        const ns::Object store = Make("store");
        const ns::Object fragment = Make("fragment");
        if (store && !none) {
            Put(store, path, id, words);
        }
        if (fragment && store) {
            ValuesOf(fragment)["store"] = objc::Ref<ns::Object>(store);
        }
        room().Enter(none ? "" : script::PlainText(script::DescribeValue(id)));
        Fact fact;
        Append(fact, InvokeIfAnswered(fragment, "componentMount"));
        Append(fact, InvokeIfAnswered(store, "setup"));
        return fact;
    }

    /// The app keeps nothing of a room that it has left.
    void Leave() {
        for (const char *kind : {"fragment", "store"}) {
            if (const objc::Ref<ns::Object> object = TheObjects().Last(kind)) {
                TheObjects().LetGo(object);
            }
        }
        room().Leave();
    }

    /// give OBJECT PATH VALUE|OBJECT|none: what key-value reads of the object find.
    void Give(WordReader &words) {
        const objc::Ref<ns::Object> owner = TheObjects().Read(words);
        if (!owner->isKindOfClass(objc_getClass(douyin::kRootClass))) {
            words.Fail("nothing can be given to that object");
        }
        const std::string path = words.Name("a key or a path of keys");
        if (words.Take("none")) {
            const auto [holder, key] = Holder(owner, path, words);
            ValuesOf(holder).erase(key);
            return;
        }
        Put(owner, path, TheObjects().Sees(words) ? TheObjects().Read(words).get() : script::ReadValue(words), words);
    }

    void Put(ns::Object owner, const std::string &path, ns::Object value, const WordReader &words) {
        const auto [holder, key] = Holder(owner, path, words);
        ValuesOf(holder)[key] = objc::Ref<ns::Object>(value);
    }

    /// The object that holds the last key of a path, those on the way made where they are missing.
    std::pair<ns::Object, std::string> Holder(ns::Object owner, std::string path, const WordReader &words) {
        for (std::size_t dot = path.find('.'); dot != std::string::npos; dot = path.find('.')) {
            const std::string key = path.substr(0, dot);
            ns::Object next = ValueUnder(owner, key);
            if (!next) {
                next = Make(KindUnder(key));
                if (!next) {
                    words.Fail("the class for " + key + " is missing");
                }
                ValuesOf(owner)[key] = objc::Ref<ns::Object>(next);
                TheObjects().LetGo(next);
            }
            owner = next;
            path.erase(0, dot + 1);
        }
        return {owner, path};
    }
};

} // namespace

std::unique_ptr<Host> MakeDouyin() {
    return std::make_unique<Douyin>();
}

} // namespace sim::hosts
