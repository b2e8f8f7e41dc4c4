#include "adapters/douyin/room_identity_probe.hpp"

#include "adapters/douyin/host_classes.hpp"
#include "apple/foundation/number.hpp"
#include "preferences/typed_reads.hpp"

#include <span>

namespace corvel::douyin {
namespace {

using KeyList = std::span<const ns::Literal>;

/// Names in the order in which they are tried; the order decides which identifier wins when there are several.
template <objc::FixedString... Names>
constexpr ns::Literal kKeys[] = {ns::Literal{objc::StringLiteral::Of<Names>()}...};

// The short generic names are trusted only where a room is all that they can mean.
constexpr KeyList kRoomModelKeys =
    kKeys<"identifier", "roomId", "room_id", "id", "Id", "ID", "rid", "roomID", "liveRoomId", "live_room_id">;
constexpr KeyList kObjectKeys = kKeys<"roomId", "room_id", "roomID", "liveRoomId", "live_room_id", "liveId", "room",
                                      "live_id", "sessionId", "liveSessionId">;
constexpr KeyList kContextKeys =
    kKeys<"roomId", "room_id", "roomID", "liveRoomId", "live_room_id", "room", "liveId", "live_id", "sessionId",
          "channelId", "groupId", "anchorId", "authorId", "userId", "streamId", "showId", "contentId">;
constexpr KeyList kContainers = kKeys<"room", "roomInfo", "liveRoom", "roomModel", "liveInfo", "streamInfo">;
constexpr KeyList kContainerKeys = kKeys<"roomId", "room_id", "id", "Id", "ID">;
constexpr KeyList kInnerStoreKeys = kKeys<"roomId", "room_id", "roomID", "liveRoomId", "live_room_id">;

constexpr unsigned long kLongestIdentifier = 63;

/// The value under the key; empty when it is nil or NSNull or the host raises.
objc::Ref<ns::Object> ValueOf(ns::Object receiver, ns::String key) {
    return ReadGuarded([&]() -> objc::Ref<ns::Object> {
        const objc::Ref<ns::Object> value = receiver.valueForKey(key);
        return value->isKindOfClass(objc::ClassOf<ns::Null>()) ? nullptr : value;
    });
}

/// What a number or a string calls itself, when that can be an identifier. Anything else is passed over: a room object
/// under such a key has a description too, and the identifier inside it is to be found.
objc::Ref<ns::String> IdentifierOf(ns::Object value) {
    return ReadGuarded([&]() -> objc::Ref<ns::String> {
        if (!IsScalar(value)) {
            return nullptr;
        }
        const ns::Object description = value.description();
        if (!description.isKindOfClass(objc::ClassOf<ns::String>())) {
            return nullptr;
        }
        const auto text = objc::As<ns::String>(description);
        const unsigned long length = text.length();
        return length >= 1 && length <= kLongestIdentifier ? objc::Ref<ns::String>(text) : nullptr;
    });
}

objc::Ref<ns::String> FirstIdentifier(ns::Object receiver, KeyList keys) {
    if (!receiver) {
        return nullptr;
    }
    for (const ns::String key : keys) {
        if (auto identifier = IdentifierOf(ValueOf(receiver, key))) {
            return identifier;
        }
    }
    return nullptr;
}

objc::Ref<ns::String> FromContext(ns::Object object) {
    const objc::Ref<ns::Object> context =
        ReadGuarded([&] { return objc::Ref<ns::Object>(PerformIfAnswered(object, objc::Selector<"context">())); });
    if (!context) {
        return nullptr;
    }
    if (auto identifier = FirstIdentifier(context, kContextKeys)) {
        return identifier;
    }
    for (const ns::String container : kContainers) {
        if (auto identifier = FirstIdentifier(ValueOf(context, container), kContainerKeys)) {
            return identifier;
        }
    }
    return nullptr;
}

objc::Ref<ns::String> FromInnerStore(ns::Object object) {
    const objc::Ref<ns::Object> store = ReadGuarded([&] { return objc::Ref<ns::Object>(StoreOf(object)); });
    // A store that names itself has been asked already.
    return store.get() != object ? FirstIdentifier(store, kInnerStoreKeys) : nullptr;
}

} // namespace

objc::Ref<ns::String> ProbeRoomIdentity(ns::Object object) {
    if (auto identifier = FirstIdentifier(ValueOf(object, "roomModel"_ns), kRoomModelKeys)) {
        return identifier;
    }
    if (auto identifier = FirstIdentifier(object, kObjectKeys)) {
        return identifier;
    }
    if (auto identifier = FromContext(object)) {
        return identifier;
    }
    return FromInnerStore(object);
}

} // namespace corvel::douyin
