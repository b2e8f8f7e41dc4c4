#include "objc_bridge.hpp"

#include "refusal.hpp"

#include "objc/class_builder.hpp"
#include "objc/encoding.hpp"
#include "objc/ref.hpp"
#include "objc/varargs.hpp"

#include <map>

extern "C" {
void DeviceMessageSend();
void DeviceMessageSendSuper();
objc::IMP DeviceLookup(objc::id receiver, objc::SEL selector);
objc::IMP DeviceLookupSuper(objc::Super *super, objc::SEL selector);
void __gnu_objc_personality_v0();
}

namespace device {
namespace {

// initWithFormat:arguments: takes iOS's argument list, a plain pointer to slots, which this platform's is not.
objc::id InitWithFormat(objc::id self, objc::SEL selector, objc::id format, const objc::ArgumentSlot *slots) {
    objc::ArgumentList list(slots);
    return reinterpret_cast<objc::id (*)(objc::id, objc::SEL, objc::id, char *)>(objc_msg_lookup(self, selector))(
        self, selector, format, list.get());
}

// Constant strings, as the image's data lays them out.
struct ConstantString {
    objc::Class isa;
    unsigned long flags;
    const void *units;
    long length;

    bool wide() const {
        constexpr unsigned long kUnicode = 0x10;
        return (flags & kUnicode) != 0;
    }
};

unsigned long Length(objc::id self, objc::SEL) {
    return static_cast<unsigned long>(reinterpret_cast<const ConstantString *>(self)->length);
}

char16_t CharacterAtIndex(objc::id self, objc::SEL, unsigned long index) {
    const auto *string = reinterpret_cast<const ConstantString *>(self);
    return string->wide() ? static_cast<const char16_t *>(string->units)[index]
                          : static_cast<const unsigned char *>(string->units)[index];
}

objc::id Itself(objc::id self, objc::SEL) {
    return self;
}

void Nothing(objc::id, objc::SEL) {}

unsigned long Forever(objc::id, objc::SEL) {
    return ~0UL;
}

objc::id CopyWithZone(objc::id self, objc::SEL, void *) {
    return self;
}

objc::Class ConstantStringClass() {
    static const objc::Class cls = [] {
        const objc::Class fresh = objc::AllocateClass("DeviceConstantString", "NSString");
        objc_registerClassPair(fresh);
        const objc::MethodEntry methods[] = {
            objc::MethodNamed<"length", &Length>(),
            objc::MethodNamed<"characterAtIndex:", &CharacterAtIndex>(),
            objc::MethodNamed<"retain", &Itself>(),
            objc::MethodNamed<"autorelease", &Itself>(),
            objc::MethodNamed<"release", &Nothing>(),
            objc::MethodNamed<"retainCount", &Forever>(),
            objc::MethodNamed<"copyWithZone:", &CopyWithZone>(),
        };
        objc::AddMethods(fresh, methods);
        return fresh;
    }();
    return cls;
}

objc::Class GetClass(objc::id object) {
    return objc::object_getClass(object);
}

objc::id BeginCatch(objc::id exception) {
    return exception; // this personality hands out the object itself
}

void EndCatch() {}

} // namespace

void *BridgedSymbol(const std::string &symbol) {
    static const std::map<std::string, void *> kBridges = {
        {"_objc_msgSend", reinterpret_cast<void *>(&DeviceMessageSend)},
        {"_objc_msgSendSuper", reinterpret_cast<void *>(&DeviceMessageSendSuper)},
        {"_objc_retain", reinterpret_cast<void *>(&objc::Retain)},
        {"_objc_release", reinterpret_cast<void *>(&objc::Release)},
        {"_object_getClass", reinterpret_cast<void *>(&GetClass)},
        {"_objc_begin_catch", reinterpret_cast<void *>(&BeginCatch)},
        {"_objc_end_catch", reinterpret_cast<void *>(&EndCatch)},
        {"___objc_personality_v0", reinterpret_cast<void *>(&__gnu_objc_personality_v0)},
        // GNU's personality compares class names.
        {"_OBJC_EHTYPE_$_NSException", const_cast<char *>("NSException")},
        {"___CFConstantStringClassReference", ConstantStringClass()},
    };
    const auto found = kBridges.find(symbol);
    return found != kBridges.end() ? found->second : nullptr;
}

void PrepareObjectiveC(const MappedImage &image) {
    for (const char *unsupported :
         {"__objc_classlist", "__objc_catlist", "__objc_protolist", "__objc_classrefs", "__objc_superrefs"}) {
        if (!image.SectionOf<void *>(unsupported).empty()) {
            throw Refusal(std::string("image with a section ") + unsupported);
        }
    }
    for (const char *&name : image.SectionOf<const char *>("__objc_selrefs")) {
        name = reinterpret_cast<const char *>(sel_registerName(name));
    }
}

} // namespace device

objc::IMP DeviceLookup(objc::id receiver, objc::SEL selector) {
    static const objc::SEL kInitWithFormat = sel_registerName("initWithFormat:arguments:");
    if (sel_isEqual(selector, kInitWithFormat) != 0) {
        return reinterpret_cast<objc::IMP>(&device::InitWithFormat);
    }
    return objc_msg_lookup(receiver, selector);
}

objc::IMP DeviceLookupSuper(objc::Super *super, objc::SEL selector) {
    return objc_msg_lookup_super(super, selector);
}
