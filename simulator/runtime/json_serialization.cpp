#include "runtime/json_serialization.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/json_serialization.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/exception.hpp"
#include "runtime/json_reader.hpp"
#include "runtime/json_writer.hpp"
#include "runtime/replace_method.hpp"

#include <span>

namespace sim {
namespace {

// Codes of Cocoa's errors.
constexpr long NSPropertyListReadCorruptError = 3840;
constexpr long NSPropertyListWriteStreamError = 3851;

struct Error : objc::Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSError";
};

using ErrorPointer = ns::Object *;

[[noreturn]] void Raise(const std::string &reason) {
    RaiseException("NSInvalidArgumentException", reason);
}

void Report(ErrorPointer error, long code, const std::string &what) {
    if (error != nullptr) {
        const auto details = ns::Dictionary::dictionaryWithObject(ns::String::stringWithUTF8String(what.c_str()),
                                                                  "NSDebugDescription"_ns);
        *error = objc::SendClass<Error, "errorWithDomain:code:userInfo:", ns::Object>("NSCocoaErrorDomain"_ns, code,
                                                                                      details);
    }
}

bool IsContainer(ns::Object object) {
    return object.Is<ns::Array>() || object.Is<ns::Dictionary>();
}

/// The encoding of JSON text by its byte-order mark or, its first character being ASCII, by where its zero bytes are.
NSStringEncoding EncodingOf(std::span<const unsigned char> bytes) {
    const auto at = [&](std::size_t index) { return index < bytes.size() ? bytes[index] : 0xFF; };
    if (at(0) == 0 && at(1) == 0) {
        return NSUTF32BigEndianStringEncoding;
    }
    if ((at(0) != 0 && at(1) == 0 && at(2) == 0 && at(3) == 0) ||
        (at(0) == 0xFF && at(1) == 0xFE && at(2) == 0 && at(3) == 0)) {
        return NSUTF32LittleEndianStringEncoding;
    }
    if (at(0) == 0 || (at(0) == 0xFE && at(1) == 0xFF)) {
        return NSUTF16BigEndianStringEncoding;
    }
    if (at(1) == 0 || (at(0) == 0xFF && at(1) == 0xFE)) {
        return NSUTF16LittleEndianStringEncoding;
    }
    return NSUTF8StringEncoding;
}

/// The text as UTF-8; nil when the bytes are not what they seem.
ns::Data Utf8Of(ns::Data data) {
    const NSStringEncoding encoding = EncodingOf({static_cast<const unsigned char *>(data.bytes()), data.length()});
    if (encoding == NSUTF8StringEncoding) {
        return data;
    }
    const auto text = objc::Ref<ns::String>::Adopt(ns::Alloc<ns::String>().initWithData(data, encoding));
    return text->dataUsingEncoding(NSUTF8StringEncoding);
}

ns::Object ReadData(objc::Class, objc::SEL, ns::Data data, NSJSONReadingOptions options, ErrorPointer error) {
    if (!data) {
        Raise("data parameter is nil");
    }
    const ns::Data text = Utf8Of(data);
    if (!text) {
        Report(error, NSPropertyListReadCorruptError, "Unable to convert data to string.");
        return {};
    }
    const json::ReadResult result = json::Read({static_cast<const char *>(text.bytes()), text.length()},
                                               (options & NSJSONReadingMutableContainers) != 0);
    if (!result.object) {
        Report(error, NSPropertyListReadCorruptError, result.error);
        return {};
    }
    if (!IsContainer(result.object.get()) && (options & NSJSONReadingFragmentsAllowed) == 0) {
        Report(error, NSPropertyListReadCorruptError,
               "JSON text did not start with array or object and option to allow fragments not set.");
        return {};
    }
    return Autoreleased(result.object);
}

ns::Data WriteObject(objc::Class, objc::SEL, ns::Object object, NSJSONWritingOptions options, ErrorPointer error) {
    if (!object) {
        Raise("value parameter is nil");
    }
    if (!IsContainer(object) && (options & NSJSONWritingFragmentsAllowed) == 0) {
        Raise("Invalid top-level type in JSON write");
    }
    const json::WriteResult result = json::Write(object, options);
    if (!result.invalid.empty()) {
        Raise(result.invalid);
    }
    if (result.unconvertible) {
        Report(error, NSPropertyListWriteStreamError, "Unable to convert string to UTF-8.");
        return {};
    }
    return ns::Data::dataWithBytes(result.text.data(), result.text.size());
}

bool IsValid(objc::Class, objc::SEL, ns::Object object) {
    return IsContainer(object) && json::Write(object, 0).invalid.empty();
}

} // namespace

void InstallJsonSerialization() {
    constexpr const char *kClass = "NSJSONSerialization";
    ReplaceClassMethod(kClass, objc::Selector<"JSONObjectWithData:options:error:">(), &ReadData);
    ReplaceClassMethod(kClass, objc::Selector<"dataWithJSONObject:options:error:">(), &WriteObject);
    ReplaceClassMethod(kClass, objc::Selector<"isValidJSONObject:">(), &IsValid);
}

} // namespace sim
