#pragma once
// The host's own objects under the names that scripts give them: "store 1", "fragment 2".

#include "apple/foundation/object.hpp"
#include "objc/ref.hpp"
#include "script/words.hpp"

#include <map>
#include <set>

namespace sim::hosts {

class Objects {
  public:
    /// Keeps a new object (retains it) under the next number of its kind.
    void Keep(const std::string &kind, ns::Object object);
    /// The host lets go of an object, which lives on only while somebody else holds it.
    void LetGo(ns::Object object);
    /// Releases an object until it is deallocated, whoever holds it.
    void ReleaseToDeath(ns::Object object);

    /// Drops the names of objects that are gone.
    void ForgetGone();

    /// Reads "KIND N"; an unknown object and one that is gone are errors.
    objc::Ref<ns::Object> Read(WordReader &words) const;
    /// Reads "KIND N" and tells whether that object still exists.
    bool ReadWhetherAlive(WordReader &words) const;
    /// Whether the next word is the kind of an object that has been made.
    bool Sees(const WordReader &words) const;
    /// Its words, as in `store 1`; `<Class>` for an object without a name, `nil` for none.
    Fact NameOf(ns::Object object) const;
    /// Whether the object has a name.
    bool Knows(ns::Object object) const {
        return Find(object) != nullptr;
    }
    /// All named objects that are alive.
    std::vector<objc::Ref<ns::Object>> Alive() const;
    /// The last object of a kind; nil when there is none or it is gone.
    objc::Ref<ns::Object> Last(const std::string &kind) const;

  private:
    /// An object that has been made; others may hold it when the host no longer does.
    struct Entry {
        std::string kind;
        long number;
        objc::WeakRef<ns::Object> object;
    };
    const Entry &ReadEntry(WordReader &words) const;
    const Entry *Find(ns::Object object) const;

    std::vector<Entry> entries_;       // in the order of their making
    std::map<std::string, long> made_; // how many objects of a kind there have been
    std::set<objc::id> held_;          // by the host
};

/// The objects of this process's one host.
Objects &TheObjects();

} // namespace sim::hosts
