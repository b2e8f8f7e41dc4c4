#include "hosts/objects.hpp"

#include "runtime/lasting.hpp"
#include "script/values.hpp"

#include <algorithm>
#include <iterator>
#include <ranges>

namespace sim::hosts {

Objects &TheObjects() {
    return Lasting<Objects>();
}

const Objects::Entry *Objects::Find(ns::Object object) const {
    const auto found = std::ranges::find_if(
        entries_, [object](const Entry &entry) { return object && entry.object.Lock().get() == object; });
    return found != entries_.end() ? &*found : nullptr;
}

void Objects::Keep(const std::string &kind, ns::Object object) {
    objc::Retain(object.pointer);
    held_.insert(object.pointer);
    entries_.push_back({kind, ++made_[kind], objc::WeakRef<ns::Object>(object)});
}

void Objects::LetGo(ns::Object object) {
    if (Knows(object) && held_.erase(object.pointer) != 0) {
        objc::Release(object.pointer);
    }
}

void Objects::ReleaseToDeath(ns::Object object) {
    held_.erase(object.pointer);
    while (Knows(object)) {
        objc::Release(object.pointer);
    }
}

void Objects::ForgetGone() {
    std::vector<Entry> there;
    std::ranges::copy_if(entries_, std::back_inserter(there),
                         [](const Entry &entry) { return static_cast<bool>(entry.object.Lock()); });
    entries_.swap(there);
}

const Objects::Entry &Objects::ReadEntry(WordReader &words) const {
    const std::string kind = words.Name("the kind of an object");
    const long number = words.Integer("the number of the " + kind);
    const auto found = std::ranges::find_if(
        entries_, [&](const Entry &entry) { return entry.kind == kind && entry.number == number; });
    if (found == entries_.end()) {
        words.Fail("the host has made no " + kind + " " + std::to_string(number));
    }
    return *found;
}

objc::Ref<ns::Object> Objects::Read(WordReader &words) const {
    objc::Ref<ns::Object> object = ReadEntry(words).object.Lock();
    if (!object) {
        words.Fail("that object is gone");
    }
    return object;
}

bool Objects::ReadWhetherAlive(WordReader &words) const {
    return static_cast<bool>(ReadEntry(words).object.Lock());
}

bool Objects::Sees(const WordReader &words) const {
    return std::ranges::any_of(entries_, [&](const Entry &entry) { return words.Sees(entry.kind); });
}

Fact Objects::NameOf(ns::Object object) const {
    if (const Entry *entry = Find(object)) {
        return {Bare(entry->kind), Bare(entry->number)};
    }
    return {Bare(object ? "<" + script::ClassName(object) + ">" : "nil")};
}

std::vector<objc::Ref<ns::Object>> Objects::Alive() const {
    std::vector<objc::Ref<ns::Object>> alive;
    for (const Entry &entry : entries_) {
        if (objc::Ref<ns::Object> object = entry.object.Lock()) {
            alive.push_back(std::move(object));
        }
    }
    return alive;
}

objc::Ref<ns::Object> Objects::Last(const std::string &kind) const {
    const auto newestFirst = entries_ | std::views::reverse;
    const auto found = std::ranges::find(newestFirst, kind, &Entry::kind);
    return found != newestFirst.end() ? found->object.Lock() : objc::Ref<ns::Object>{};
}

} // namespace sim::hosts
