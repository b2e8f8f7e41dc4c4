// Douyin: comment fragments, comment stores, the context of a comment, room models, the live player's preferences.

#include "hosts/app.hpp"
#include "hosts/douyin/classes.hpp"
#include "hosts/keyed.hpp"
#include "script/values.hpp"

namespace sim::hosts {
namespace {

constexpr Kind kKinds[] = {
    {"fragment", "HTSLiveCommentFragment", true},
    {"gift-fragment", "HTSLiveGiftFragment"},
    {"store", "HTSLiveCommentStore", true},
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

} // namespace

class Douyin final : public Host {
  public:
    Douyin()
        : Host({.appName = "抖音直播", .placeholder = "说点什么…", .anchor = "小鹿的歌房", .accent = 0xFE2C55},
               kKinds) {
        On("enter", [this](WordReader &words) { return Enter(words); });
        On("give", [this](WordReader &words) -> Fact {
            Give(words);
            return {};
        });
    }

    void RegisterClasses() override {
        douyin::RegisterClasses();
    }

  private:
    /// enter VALUE|none [at PATH]: a room as the app opens it, its id where the build keeps it.
    Fact Enter(WordReader &words) {
        const bool none = words.Take("none");
        const ns::Object id = none ? ns::Object{} : script::ReadValue(words);
        const std::string path = words.Take("at") ? words.Name("the path of the room id") : "roomModel.identifier";
        const objc::Ref<ns::Object> store = Make("store");
        const objc::Ref<ns::Object> fragment = Make("fragment");
        if (store && !none) {
            Put(store, path, words, id);
        }
        if (fragment && store) {
            Keep(fragment, "store", store);
        }
        room().Enter(none ? "" : script::PlainText(script::DescribeValue(id)));
        Fact fact = InvokeIfAnswered(fragment, "componentMount");
        Append(fact, InvokeIfAnswered(store, "setup"));
        return fact;
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
            TakeAway(holder, key);
            return;
        }
        const objc::Ref<ns::Object> value = ReadObject(words);
        Put(owner, path, words, value);
    }

    void Put(ns::Object owner, const std::string &path, const WordReader &words, ns::Object value) {
        const auto [holder, key] = Holder(owner, path, words);
        Keep(holder, key, value);
    }

    /// The object that holds the last key of a path, those on the way made where they are missing.
    std::pair<ns::Object, std::string> Holder(ns::Object owner, std::string path, const WordReader &words) {
        for (std::size_t dot = path.find('.'); dot != std::string::npos; dot = path.find('.')) {
            const std::string key = path.substr(0, dot);
            objc::Ref<ns::Object> next = ValueUnder(owner, key);
            if (!next) {
                next = Make(KindUnder(key));
                if (!next) {
                    words.Fail("the class for " + key + " is missing");
                }
                Keep(owner, key, next);
                TheObjects().LetGo(next);
            }
            owner = next;
            path.erase(0, dot + 1);
        }
        return {owner, path};
    }
};

template std::unique_ptr<Host> MakeHost<Douyin>();

} // namespace sim::hosts
