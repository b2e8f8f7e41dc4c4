#include "adapters/douyin/room_identity_probe.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/number.hpp"
#include "objc/guard.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace corvel::douyin {
namespace {

using objc::MethodNamed;

ns::String Text(const std::string &text) {
    return ns::String::stringWithUTF8String(text.c_str());
}

/// One host object: what it gives under which key and what it answers. Everything else is nil.
struct Node {
    std::string name;
    std::map<std::string, ns::Object> values;
    ns::Object context;
    ns::Object store;
    ns::Object commentStore;
    ns::Object description;
    /// Names of keys and messages that raise; "*" is every key without a value.
    std::set<std::string> raising;
};

struct MutableData : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSMutableData";
};

/// The nodes by their objects, and every "node.key" that was looked up, in order.
std::map<objc::id, Node> nodes;
std::vector<std::string> lookups;

Node &NodeOf(ns::Object object) {
    return nodes[object.pointer];
}

void RaiseIfTold(ns::Object self, const char *what) {
    if (NodeOf(self).raising.contains(what)) {
        test::Raise("no answer"_ns);
    }
}

ns::Object ValueForKey(ns::Object self, objc::SEL, ns::Object key) {
    const std::string name = objc::As<ns::String>(key).UTF8String();
    lookups.push_back(NodeOf(self).name + "." + name);
    RaiseIfTold(self, name.c_str());
    const auto found = NodeOf(self).values.find(name);
    if (found == NodeOf(self).values.end()) {
        RaiseIfTold(self, "*");
        return {};
    }
    return found->second;
}

ns::Object Context(ns::Object self, objc::SEL) {
    RaiseIfTold(self, "context");
    return NodeOf(self).context;
}

ns::Object Store(ns::Object self, objc::SEL) {
    RaiseIfTold(self, "store");
    return NodeOf(self).store;
}

ns::Object CommentStore(ns::Object self, objc::SEL) {
    RaiseIfTold(self, "commentStore");
    return NodeOf(self).commentStore;
}

ns::Object Description(ns::Object self, objc::SEL) {
    RaiseIfTold(self, "description");
    return NodeOf(self).description;
}

bool IsKindOfClass(ns::Object self, objc::SEL, objc::Class cls) {
    RaiseIfTold(self, "isKindOfClass:");
    return objc::SendSuper<"isKindOfClass:", bool>(self, cls);
}

/// Every lookup of a probe that finds nothing on an object with a room model, a context with all six containers
/// and an inner store.
const std::vector<std::string> &AllLookups() {
    static const std::vector<std::string> all = [] {
        std::vector<std::string> list{"object.roomModel"};
        const auto add = [&](const std::string &node, const std::vector<std::string> &keys) {
            for (const std::string &key : keys) {
                list.push_back(std::string(node).append(".").append(key));
            }
        };
        add("model",
            {"identifier", "roomId", "room_id", "id", "Id", "ID", "rid", "roomID", "liveRoomId", "live_room_id"});
        add("object", {"roomId", "room_id", "roomID", "liveRoomId", "live_room_id", "liveId", "room", "live_id",
                       "sessionId", "liveSessionId"});
        add("context",
            {"roomId", "room_id", "roomID", "liveRoomId", "live_room_id", "room", "liveId", "live_id", "sessionId",
             "channelId", "groupId", "anchorId", "authorId", "userId", "streamId", "showId", "contentId"});
        for (const char *container : {"room", "roomInfo", "liveRoom", "roomModel", "liveInfo", "streamInfo"}) {
            add("context", {container});
            add(container, {"roomId", "room_id", "id", "Id", "ID"});
        }
        add("inner", {"roomId", "room_id", "roomID", "liveRoomId", "live_room_id"});
        return list;
    }();
    return all;
}

class RoomIdentityProbeTest : public testing::Test {
  protected:
    void SetUp() override {
        nodes.clear();
        lookups.clear();
        object = Make(kFullClass, "object");
        model = Make(kKeysClass, "model");
        context = Make(kKeysClass, "context");
        inner = Make(kKeysClass, "inner");
        NodeOf(object).values["roomModel"] = model;
        NodeOf(object).context = context;
        NodeOf(object).store = inner;
        for (const char *name : {"room", "roomInfo", "liveRoom", "roomModel", "liveInfo", "streamInfo"}) {
            containers[name] = Make(kKeysClass, name);
            NodeOf(context).values[name] = containers[name];
        }
    }

    /// A new object of the class under the name, alive until the test ends.
    ns::Object Make(const char *className, const std::string &name) {
        owned.push_back(test::NewInstance(ClassNamed(className)));
        nodes[owned.back().get().pointer].name = name;
        return owned.back();
    }

    /// Puts the value where a lookup written "node.key" finds it.
    static void Put(const std::string &lookup, ns::Object value) {
        const auto dot = lookup.find('.');
        for (auto &[pointer, node] : nodes) {
            if (node.name == lookup.substr(0, dot)) {
                node.values[lookup.substr(dot + 1)] = value;
            }
        }
    }

    /// What the probe finds on the object, "(nil)" for nothing. Nothing may be raised.
    static std::string Probe(ns::Object object) {
        lookups.clear();
        std::string result = "(raised)";
        objc::Guard([&] {
            const auto found = ProbeRoomIdentity(object);
            result = found ? found->UTF8String() : "(nil)";
        });
        return result;
    }

    static objc::Class ClassNamed(const char *name) {
        if (objc_getClass(kKeysClass) == nullptr) {
            test::RegisterClass(kKeysClass, "NSObject",
                                {MethodNamed<"valueForKey:", &ValueForKey>(),
                                 MethodNamed<"description", &Description>(),
                                 MethodNamed<"isKindOfClass:", &IsKindOfClass>()});
            test::RegisterClass(kContextClass, kKeysClass, {MethodNamed<"context", &Context>()});
            test::RegisterClass(kCommentStoreClass, kContextClass, {MethodNamed<"commentStore", &CommentStore>()});
            test::RegisterClass(kFullClass, kCommentStoreClass, {MethodNamed<"store", &Store>()});
        }
        return objc_getClass(name);
    }

    static constexpr const char *kKeysClass = "ProbedKeys";
    static constexpr const char *kContextClass = "ProbedWithContext";
    static constexpr const char *kCommentStoreClass = "ProbedWithCommentStore";
    static constexpr const char *kFullClass = "ProbedWithStore";

    test::Pool pool;
    std::vector<objc::Ref<ns::Object>> owned;
    std::map<std::string, ns::Object> containers;
    ns::Object object;
    ns::Object model;
    ns::Object context;
    ns::Object inner;
};

TEST_F(RoomIdentityProbeTest, LooksEverywhereInItsOrderAndNowhereTwice) {
    EXPECT_EQ(Probe(object), "(nil)");
    EXPECT_EQ(lookups, AllLookups());
}

TEST_F(RoomIdentityProbeTest, TheFirstPlaceThatHasAnIdentifierWins) {
    const std::vector<std::string> &all = AllLookups();
    // From the last place to the first: each earlier one must win over all that are filled already.
    for (std::size_t place = all.size(); place-- > 1;) {
        const std::string &lookup = all[place];
        if (lookup.starts_with("context.") && containers.contains(lookup.substr(sizeof("context.") - 1))) {
            continue; // holds a container, which names itself nothing
        }
        const std::string identifier = std::to_string(place);
        Put(lookup, Text(identifier));
        EXPECT_EQ(Probe(object), identifier) << lookup;
        EXPECT_EQ(lookups.size(), place + 1) << "stops at " << lookup;
    }
}

TEST_F(RoomIdentityProbeTest, AcceptsNumbersAndStringsOfOneTo63Characters) {
    const std::string longest(63, '7');
    const std::string tooLong(64, '7');
    const ns::Object room = Make(kKeysClass, "value");
    NodeOf(room).description = "a room"_ns;
    const ns::Object noKind = Make(kKeysClass, "value");
    NodeOf(noKind).raising = {"isKindOfClass:"};
    const auto data = objc::SendClass<MutableData, "dataWithLength:", MutableData>(7UL);
    const auto expect = [&](const char *what, ns::Object value, const std::string &result) {
        Put("object.roomId", value);
        Put("object.room_id", "next"_ns);
        EXPECT_EQ(Probe(object), result) << what;
    };

    expect("a string", "7301"_ns, "7301");
    expect("one character", "7"_ns, "7");
    expect("63 characters", Text(longest), longest);
    expect("64 characters", Text(tooLong), "next");
    expect("63 units beyond ASCII", Text(longest.substr(1) + "弹"), longest.substr(1) + "弹");
    expect("an empty string", ns::String::stringWithUTF8String(""), "next");
    expect("a number", ns::Number::numberWithLongLong(7301234567890123456LL), "7301234567890123456");
    expect("nil", nullptr, "next");
    expect("NSNull", ns::Null::null(), "next");
    expect("no number at all", ns::Number::numberWithDouble(std::nan("")), "next");
    expect("a number without end", ns::Number::numberWithDouble(-HUGE_VAL), "next");
    expect("an object with a description", room, "next");
    expect("an empty container", ns::MutableDictionary::dictionary(), "next");
    expect("data, with a length too", data, "next");
    expect("a value that raises when asked what it is", noKind, "next");
}

TEST_F(RoomIdentityProbeTest, ARaisingLookupCostsOnlyItself) {
    for (const ns::Object node : {object, model, context, inner}) {
        NodeOf(node).raising = {"*"};
    }
    EXPECT_EQ(Probe(object), "(nil)");
    EXPECT_EQ(lookups, AllLookups()) << "with every key without a value raising";

    NodeOf(inner).values["live_room_id"] = "inner"_ns;
    EXPECT_EQ(Probe(object), "inner");
    NodeOf(containers["streamInfo"]).values["ID"] = "container"_ns;
    NodeOf(context).raising.insert({"room", "roomInfo", "liveRoom", "roomModel", "liveInfo"});
    EXPECT_EQ(Probe(object), "container") << "after five containers that raise";
    NodeOf(object).raising.insert("context");
    EXPECT_EQ(Probe(object), "inner") << "after a context that raises";
    NodeOf(object).raising.insert("store");
    EXPECT_EQ(Probe(object), "(nil)") << "with a store that raises";
    NodeOf(object).values["liveSessionId"] = "object"_ns;
    NodeOf(object).raising.insert("roomModel");
    EXPECT_EQ(Probe(object), "object") << "after a room model that raises";
}

TEST_F(RoomIdentityProbeTest, LeavesOutWhatIsNotThere) {
    const auto asked = [&](const char *node) {
        return std::ranges::any_of(
            lookups, [&](const std::string &lookup) { return lookup.starts_with(std::string(node) + "."); });
    };
    const ns::Object null = ns::Null::null();
    NodeOf(object).values["roomModel"] = null;
    NodeOf(context).values["roomInfo"] = null;
    NodeOf(context).values.erase("liveRoom");
    EXPECT_EQ(Probe(object), "(nil)");
    EXPECT_FALSE(asked("model") || asked("roomInfo") || asked("liveRoom"));
    EXPECT_TRUE(asked("room") && asked("streamInfo") && asked("inner"));

    NodeOf(object).context = nullptr;
    EXPECT_EQ(Probe(object), "(nil)");
    EXPECT_FALSE(asked("context"));

    const ns::Object keysOnly = Make(kKeysClass, "keysOnly");
    EXPECT_EQ(Probe(keysOnly), "(nil)");
    EXPECT_EQ(lookups.size(), 11U) << "an object that answers neither context nor store";
    EXPECT_EQ(Probe(nullptr), "(nil)");
}

TEST_F(RoomIdentityProbeTest, TheInnerStoreIsAnotherObjectByEitherName) {
    const std::size_t withoutInner = AllLookups().size() - 5;

    NodeOf(object).store = object;
    NodeOf(object).commentStore = inner;
    NodeOf(inner).values["roomID"] = "inner"_ns;
    EXPECT_EQ(Probe(object), "(nil)") << "a store that names itself ends the search";
    EXPECT_EQ(lookups.size(), withoutInner);

    NodeOf(object).store = nullptr;
    EXPECT_EQ(Probe(object), "inner") << "a nil store gives way to the comment store";
    NodeOf(object).commentStore = object;
    EXPECT_EQ(Probe(object), "(nil)");
    EXPECT_EQ(lookups.size(), withoutInner);

    const ns::Object other = Make(kCommentStoreClass, "other");
    NodeOf(other).commentStore = inner;
    EXPECT_EQ(Probe(other), "inner") << "an object without store has its comment store asked";

    NodeOf(inner).values.clear();
    const ns::Object deeper = Make(kFullClass, "deeper");
    NodeOf(deeper).context = context;
    NodeOf(context).values["roomId"] = "too deep"_ns;
    NodeOf(object).context = nullptr;
    NodeOf(object).store = deeper;
    EXPECT_EQ(Probe(object), "(nil)") << "the inner store's own context is not asked";
}

TEST_F(RoomIdentityProbeTest, WorksOnFoundationsOwnKeyValueCoding) {
    EXPECT_EQ(Probe(ns::New<ns::Object>()), "(nil)") << "an object without any of the keys";
    const auto room = ns::New<ns::MutableDictionary>();
    room->setObject("7301"_ns, "rid"_ns);
    const auto host = ns::New<ns::MutableDictionary>();
    host->setObject(room.get(), "roomModel"_ns);
    EXPECT_EQ(Probe(host.get()), "7301");
}

} // namespace
} // namespace corvel::douyin
