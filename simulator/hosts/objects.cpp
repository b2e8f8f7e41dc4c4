#include "hosts/objects.hpp"

#include <algorithm>

namespace sim::hosts {

using script::Bare;
using script::Fact;

Objects &TheObjects() {
    // Never destroyed: the objects that it points to are not taken apart at exit either.
    static auto &objects = *new Objects();
    return objects;
}

Objects::Entry *Objects::Find(ns::Object object) const {
    for (const auto &[kind, numbered] : entries_) {
        for (const std::unique_ptr<Entry> &entry : numbered) {
            if (object && entry->object.Lock().get() == object) {
                return entry.get();
            }
        }
    }
    return nullptr;
}

void Objects::Keep(const std::string &kind, ns::Object object) {
    objc::Retain(object.pointer);
    entries_[kind].push_back(std::make_unique<Entry>(objc::WeakRef<ns::Object>(object)));
}

void Objects::LetGo(ns::Object object) {
    Entry *entry = Find(object);
    if (entry != nullptr && entry->held) {
        entry->held = false;
        objc::Release(object.pointer);
    }
}

void Objects::ReleaseToDeath(ns::Object object) {
    while (Entry *entry = Find(object)) {
        entry->held = false;
        objc::Release(object.pointer);
    }
}

Objects::Entry &Objects::ReadEntry(script::WordReader &words) const {
    const std::string kind = words.Name("the kind of an object");
    const auto numbered = entries_.find(kind);
    if (numbered == entries_.end()) {
        words.Fail("the host has made no " + kind);
    }
    const long number = words.Integer("the number of the " + kind);
    if (number < 1 || number > std::ssize(numbered->second)) {
        words.Fail("the host has made no " + kind + " " + std::to_string(number));
    }
    return *numbered->second[static_cast<std::size_t>(number - 1)];
}

objc::Ref<ns::Object> Objects::Read(script::WordReader &words) const {
    objc::Ref<ns::Object> object = ReadEntry(words).object.Lock();
    if (!object) {
        words.Fail("that object is gone");
    }
    return object;
}

bool Objects::ReadWhetherAlive(script::WordReader &words) const {
    return static_cast<bool>(ReadEntry(words).object.Lock());
}

bool Objects::Sees(const script::WordReader &words) const {
    return std::ranges::any_of(entries_, [&](const auto &entry) { return words.Sees(entry.first); });
}

Fact Objects::NameOf(ns::Object object) const {
    for (const auto &[kind, numbered] : entries_) {
        for (std::size_t i = 0; i < numbered.size(); ++i) {
            if (object && numbered[i]->object.Lock().get() == object) {
                return {Bare(kind), Bare(std::to_string(i + 1))};
            }
        }
    }
    return {Bare(object ? std::string("<") + class_getName(objc::object_getClass(object.pointer)) + ">" : "nil")};
}

bool Objects::Knows(ns::Object object) const {
    return Find(object) != nullptr;
}

objc::Ref<ns::Object> Objects::Last(const std::string &kind) const {
    const auto numbered = entries_.find(kind);
    return numbered == entries_.end() ? objc::Ref<ns::Object>{} : numbered->second.back()->object.Lock();
}

} // namespace sim::hosts
