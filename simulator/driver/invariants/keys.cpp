// keys PREFIX: of the app's preferences, only those with the prefix change by themselves. What a line of the script
// writes is the script's.

#include "apple/foundation/collections.hpp"
#include "driver/invariants/invariant.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/user_defaults.hpp"
#include "script/values.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

class Keys final : public Invariant {
  public:
    explicit Keys(WordReader &words) : prefix_(words.QuotedText("the prefix")), others_(Others()) {}

    std::string Broken(const script::Line &line) override {
        const AutoreleasePool pool;
        const objc::Ref<ns::Dictionary> before = others_;
        others_ = Others();
        if (before->isEqual(others_.get())) {
            return "";
        }
        for (const ns::Dictionary keys : {before.get(), others_.get()}) {
            for (const ns::String key : ns::ArrayOf<ns::String>(keys.allKeys())) {
                const ns::Object now = others_->objectForKey(key);
                const ns::Object then = before->objectForKey(key);
                const std::string name = script::TextOf(key);
                const bool same = now == then || (now && then && now.isEqual(then));
                if (!same && std::ranges::find(line.words, name, &Word::text) == line.words.end()) {
                    return "\"" + name + "\" was changed";
                }
            }
        }
        return "";
    }

  private:
    objc::Ref<ns::Dictionary> Others() const {
        const auto others = ns::New<ns::MutableDictionary>();
        const ns::Dictionary all = StoredPreferences();
        const ns::String prefix = script::MakeString(prefix_);
        for (const ns::String key : ns::ArrayOf<ns::String>(all.allKeys())) {
            if (!key.hasPrefix(prefix)) {
                others->setObject(all.objectForKey(key), key);
            }
        }
        return ns::Dictionary{others.get()};
    }

    std::string prefix_;
    objc::Ref<ns::Dictionary> others_;
};

} // namespace

std::unique_ptr<Invariant> MakeKeys(WordReader &words) {
    return std::make_unique<Keys>(words);
}

} // namespace sim::driver
