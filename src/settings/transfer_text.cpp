#include "settings/transfer_text.hpp"

#include "apple/foundation/json_serialization.hpp"
#include "objc/guard.hpp"
#include "settings/whole_texts.hpp"
#include "settings/zlib_codec.hpp"

namespace corvel {
namespace {

/// Length of "DM1:" and of "CV1:".
constexpr unsigned long kMagicLength = 4;

objc::Ref<ns::Data> DataOf(ByteBuffer buffer) {
    const std::size_t length = buffer.size();
    return objc::Ref<ns::Data>::Adopt(ns::Alloc<ns::Data>().initWithBytesNoCopy(buffer.Release(), length));
}

/// The data's bytes after the transformation; empty when either fails.
template <class Transform> objc::Ref<ns::Data> Transformed(ns::Data data, Transform transform) {
    ByteBuffer input;
    if (!input.Resize(data.length())) {
        return {};
    }
    data.getBytes(input.data(), input.size());
    std::optional<ByteBuffer> output = transform(input);
    return output ? DataOf(std::move(*output)) : objc::Ref<ns::Data>{};
}

objc::Ref<ns::String> Encode(ns::Dictionary configuration) {
    const objc::Ref<ns::Data> json =
        ns::JSONSerialization::dataWithJSONObject(WithWholeTexts(configuration), 0, nullptr);
    if (!json) {
        return {};
    }
    const objc::Ref<ns::Data> packed = Transformed(json, &Deflate);
    if (packed->length() > 0) {
        return "DM1:"_ns.stringByAppendingString(packed->base64EncodedStringWithOptions(0));
    }
    return objc::Ref<ns::String>::Adopt(ns::Alloc<ns::String>().initWithData(json, NSUTF8StringEncoding));
}

/// The JSON text that stands in base64 behind the magic; empty when there is none.
objc::Ref<ns::Data> Unpack(ns::String text) {
    const auto body = objc::Ref<ns::Data>::Adopt(
        ns::Alloc<ns::Data>().initWithBase64EncodedString(text.substringFromIndex(kMagicLength), 0));
    return body->length() > 0 ? Transformed(body, &Inflate) : body;
}

objc::Ref<ns::Dictionary> Decode(ns::String text) {
    const bool isPacked = text.hasPrefix("DM1:"_ns) || text.hasPrefix("CV1:"_ns);
    const objc::Ref<ns::Data> json =
        isPacked ? Unpack(text) : objc::Ref<ns::Data>(text.dataUsingEncoding(NSUTF8StringEncoding));
    if (!json || json->length() > kLargestText) {
        return {};
    }
    const ns::Object parsed = ns::JSONSerialization::JSONObjectWithData(json, 0, nullptr);
    return parsed.isKindOfClass(objc::ClassOf<ns::Dictionary>()) ? objc::As<ns::Dictionary>(parsed) : ns::Dictionary{};
}

} // namespace

objc::Ref<ns::String> EncodeConfiguration(ns::Dictionary configuration) {
    objc::Ref<ns::String> text;
    objc::Guard([&] { text = Encode(configuration); });
    return text;
}

objc::Ref<ns::Dictionary> DecodeConfiguration(ns::String text) {
    objc::Ref<ns::Dictionary> configuration;
    objc::Guard([&] { configuration = Decode(text); });
    return configuration;
}

} // namespace corvel
