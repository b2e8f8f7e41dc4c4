// sends ACTION from TAG keys "PREFIX" empty "TEXT" ready [HOST FUNCTION]…: the action, a class method of NSObject, is
// what a tap on a cell runs. It hands the cell's text to the app whole, never twice, and once for certain when the
// host's function says that the library is ready and no method of the app misbehaves.

#include "apple/foundation/user_defaults.hpp"
#include "apple/uikit/button.hpp"
#include "driver/invariants/invariant.hpp"
#include "driver/view_properties.hpp"
#include "hosts/plan.hpp"
#include "hosts/record.hpp"
#include "objc/class_builder.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/user_defaults.hpp"
#include "script/text.hpp"
#include "script/values.hpp"

#include <map>
#include <set>
#include <utility>

namespace sim::driver {
namespace {

/// Whether the text begins with the title, which may end with half a character.
bool Begins(const std::string &text, const std::string &title) {
    return script::ToUtf16(text).value_or(u"").starts_with(script::ToUtf16(title).value_or(u""));
}

class Sends;
Sends *watching = nullptr; // what the replaced action tells of its taps

class Sends final : public Invariant {
  public:
    explicit Sends(WordReader &words) : action_(words.Name("a handler")) {
        words.Expect("from");
        firstTag_ = words.Integer("the tag of the first cell");
        words.Expect("keys");
        prefix_ = words.QuotedText("what the keys of the texts begin with");
        words.Expect("empty");
        empty_ = words.QuotedText("what is sent for an empty text");
        words.Expect("ready");
        while (!words.AtEnd()) {
            const std::string host = words.Name("a host");
            readyFunctions_[host] = words.Name("an exported function");
        }
    }

    void Begin(const Library &library, const std::string &host) override {
        isReady_ = reinterpret_cast<unsigned char (*)()>(library.Function(readyFunctions_[host]));
        const objc::SEL action = sel_registerName(action_.c_str());
        if (objc::Method const method =
                class_getInstanceMethod(objc::MetaclassOf(objc::ClassOf<ns::Object>()), action)) {
            watching = this;
            original_ = reinterpret_cast<Action>(method_setImplementation(method, reinterpret_cast<objc::IMP>(&Tap)));
        }
        Remember();
    }

    std::string Broken(const script::Line &) override {
        Remember();
        return std::exchange(wrong_, "");
    }

  private:
    using Action = void (*)(objc::Class self, objc::SEL action, ui::Button cell);

    static void Tap(objc::Class self, objc::SEL action, ui::Button cell) {
        const bool certain = watching->IsCertain();
        const std::size_t before = hosts::TheRecord().comments.size();
        const std::string title = TextShown(cell);
        const std::set<std::string> texts = watching->TextsOf(cell.tag() - watching->firstTag_);
        watching->original_(self, action, cell);
        watching->Compare(certain, before, title, texts);
    }

    bool IsCertain() const {
        const hosts::Plan &plan = hosts::ThePlan();
        return plan.throwing.empty() && plan.refusing.empty() && isReady_ != nullptr && isReady_() != 0;
    }

    /// What the cell may stand for: any text that its key has had, for a layout shows it later than it changes.
    std::set<std::string> TextsOf(long index) {
        const std::string key = prefix_ + std::to_string(index);
        Remember();
        std::set<std::string> texts = texts_[key];
        texts.insert(std::to_string(index + 1));
        return texts;
    }

    void Compare(bool certain, std::size_t before, const std::string &title, const std::set<std::string> &texts) {
        const std::vector<hosts::Comment> &comments = hosts::TheRecord().comments;
        const std::size_t count = comments.size() - before;
        if (count > 1 || (certain && count == 0)) {
            Complain(title, Bare(std::to_string(count) + " comments"));
        }
        for (std::size_t i = before; i < comments.size(); ++i) {
            const std::string text = script::PlainText(comments[i].text);
            const bool whole = texts.contains(text) && Begins(text, title);
            // An app that misbehaves may lose the text on its own way.
            const bool lost = !certain && comments[i].text == Fact{Bare("nil")};
            if (!whole && !lost && !(title.empty() && text == empty_)) {
                Complain(title, comments[i].text.front());
            }
        }
    }

    void Complain(const std::string &title, const Word &sent) {
        wrong_ = script::Render(Fact{Bare("a tap on"), script::Text(title), Bare("sent"), sent});
    }

    /// Keeps every text that a key has now.
    void Remember() {
        const AutoreleasePool pool;
        const ns::Dictionary all = StoredPreferences();
        const ns::String prefix = script::MakeString(prefix_);
        for (const ns::String key : ns::ArrayOf<ns::String>(all.allKeys())) {
            if (key.hasPrefix(prefix)) {
                const ns::String text = ns::UserDefaults::standardUserDefaults().stringForKey(key);
                texts_[script::TextOf(key)].insert(script::TextOf(text));
            }
        }
    }

    std::string action_;
    long firstTag_ = 0;
    std::string prefix_;
    std::string empty_;
    std::map<std::string, std::string> readyFunctions_; // by host
    unsigned char (*isReady_)() = nullptr;
    Action original_ = nullptr;
    std::map<std::string, std::set<std::string>> texts_; // by key
    std::string wrong_;
};

} // namespace

std::unique_ptr<Invariant> MakeSends(WordReader &words) {
    return std::make_unique<Sends>(words);
}

} // namespace sim::driver
