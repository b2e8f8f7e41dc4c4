#pragma once
// The C interface of the Objective-C runtime, declared here so that the same
// sources build against Apple's runtime and against GNU's without either's headers.

#include <cstddef>
#include <cstdint>

extern "C" {
struct objc_object;
struct objc_class;
struct objc_selector;
struct objc_method;
struct objc_ivar;
struct objc_protocol;
}

namespace objc {
using id = objc_object *;
using Class = objc_class *;
using SEL = const objc_selector *;
using Method = objc_method *;
using Ivar = objc_ivar *;
using Protocol = objc_protocol *;
/// A method's implementation, untyped; cast it to the method's own function type to call it.
using IMP = void (*)();
} // namespace objc

enum objc_AssociationPolicy : std::uintptr_t {
    OBJC_ASSOCIATION_ASSIGN = 0,
    OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1,
    OBJC_ASSOCIATION_COPY_NONATOMIC = 3,
    OBJC_ASSOCIATION_RETAIN = 01401,
    OBJC_ASSOCIATION_COPY = 01403,
};

extern "C" {
objc::Class objc_getClass(const char *name);
objc::Class objc_allocateClassPair(objc::Class superclass, const char *name, std::size_t extraBytes);
void objc_registerClassPair(objc::Class cls);
objc::Protocol objc_getProtocol(const char *name);
objc::SEL sel_registerName(const char *name);
const char *sel_getName(objc::SEL selector);
const char *class_getName(objc::Class cls);
objc::Class class_getSuperclass(objc::Class cls);
objc::Method *class_copyMethodList(objc::Class cls, unsigned *count);
objc::Method class_getInstanceMethod(objc::Class cls, objc::SEL selector);
bool class_addMethod(objc::Class cls, objc::SEL selector, objc::IMP implementation, const char *types);
bool class_addIvar(objc::Class cls, const char *name, std::size_t size, std::uint8_t log2Alignment, const char *types);
bool class_addProtocol(objc::Class cls, objc::Protocol protocol);
objc::Ivar class_getInstanceVariable(objc::Class cls, const char *name);
std::ptrdiff_t ivar_getOffset(objc::Ivar ivar);
objc::SEL method_getName(objc::Method method);
const char *method_getTypeEncoding(objc::Method method);
objc::IMP method_getImplementation(objc::Method method);
objc::IMP method_setImplementation(objc::Method method, objc::IMP implementation);
objc::IMP imp_implementationWithBlock(objc::id block);
void objc_setAssociatedObject(objc::id object, const void *key, objc::id value, objc_AssociationPolicy policy);
objc::id objc_getAssociatedObject(objc::id object, const void *key);
objc::id objc_initWeak(objc::id *location, objc::id value);
objc::id objc_loadWeakRetained(objc::id *location);
void objc_copyWeak(objc::id *to, objc::id *from);
void objc_destroyWeak(objc::id *location);
void *_Block_copy(const void *block);
void _Block_release(const void *block);
extern void *_NSConcreteStackBlock[32];
#if defined(__APPLE__)
objc::Class object_getClass(objc::id object);
bool sel_isEqual(objc::SEL left, objc::SEL right);
bool class_isMetaClass(objc::Class cls);
objc::id objc_retain(objc::id object);
void objc_release(objc::id object);
void objc_msgSend();
void objc_msgSendSuper();
#else
unsigned char sel_isEqual(objc::SEL left, objc::SEL right);
unsigned char class_isMetaClass(objc::Class cls);
objc::IMP objc_msg_lookup(objc::id receiver, objc::SEL selector);
objc::IMP objc_msg_lookup_super(void *super, objc::SEL selector);
#endif
}

namespace objc {

/// The receiver and the class at which the lookup starts, as a super send passes them.
struct Super {
    id receiver;
    Class superclass;
};

#if !defined(__APPLE__)
/// The class of an object (the metaclass of a class); nil for nil. GNU's is an inline of its own header.
inline Class object_getClass(id object) {
    return object != nullptr ? *reinterpret_cast<Class *>(object) : nullptr;
}
#else
using ::object_getClass;
#endif

/// A class seen as the object that it is.
inline id AsObject(Class cls) {
    return reinterpret_cast<id>(cls);
}

} // namespace objc
