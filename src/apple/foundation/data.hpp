#pragma once
// NSData.

#include "apple/foundation/string.hpp"

namespace ns {

struct Data : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSData";

    /// Copies the bytes.
    static Data dataWithBytes(const void *bytes, unsigned long length) {
        return objc::SendClass<Data, "dataWithBytes:length:", Data>(bytes, length);
    }
    /// Takes over the bytes, which must come from malloc.
    Data initWithBytesNoCopy(void *bytes, unsigned long length) const {
        return objc::Send<"initWithBytesNoCopy:length:", Data>(*this, bytes, length);
    }
    /// Nil when the string is not base64 throughout; with options 0 blanks and line breaks are foreign to it too.
    Data initWithBase64EncodedString(String string, unsigned long options) const {
        return objc::Send<"initWithBase64EncodedString:options:", Data>(*this, string, options);
    }
    String base64EncodedStringWithOptions(unsigned long options) const {
        return objc::Send<"base64EncodedStringWithOptions:", String>(*this, options);
    }
    /// The bytes, which live as long as the data.
    const void *bytes() const {
        return objc::Send<"bytes", const void *>(*this);
    }
    unsigned long length() const {
        return objc::Send<"length", unsigned long>(*this);
    }
    /// Copies the first bytes; there must be room for that many.
    void getBytes(void *buffer, unsigned long count) const {
        objc::Send<"getBytes:length:", void>(*this, buffer, count);
    }
};

inline String String::initWithData(Data data, NSStringEncoding encoding) const {
    return objc::Send<"initWithData:encoding:", String>(*this, data, encoding);
}

inline Data String::dataUsingEncoding(NSStringEncoding encoding) const {
    return objc::Send<"dataUsingEncoding:", Data>(*this, encoding);
}

} // namespace ns
