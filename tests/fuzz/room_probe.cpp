// The room probe over objects of any shape: methods of any types, values of any kind under any key, any of them
// raising.

#include "adapters/douyin/room_identity_probe.hpp"
#include "apple/foundation/collections.hpp"
#include "apple/foundation/exception.hpp"
#include "apple/foundation/number.hpp"
#include "input.hpp"
#include "objc/class_builder.hpp"
#include "platform.hpp"

#include <array>
#include <string>

namespace {

fuzz::Input *g_input = nullptr;
/// Objects that the present input has made, held until it is done.
objc::Ref<ns::MutableArray> g_made;
int g_depth = 0;

ns::Object NewHostObject();

void RaiseIfTold(std::uint8_t choice) {
    if (choice == 0xff) {
        ns::Exception::exceptionWithName("HostException"_ns, "no answer"_ns).raise();
    }
}

/// Whatever the input says comes next.
ns::Object NextAnswer() {
    const auto choice = g_input->Take<std::uint8_t>();
    RaiseIfTold(choice);
    switch (choice % 8) {
    case 1:
        return objc::SendClass<ns::Null, "null", ns::Object>();
    case 2:
        return g_input->TakeString();
    case 3:
        return ns::Number::numberWithDouble(g_input->Take<double>());
    case 4:
        return ns::Number::numberWithLong(g_input->Take<long>());
    case 5:
        return sim::Autoreleased(ns::New<ns::MutableDictionary>());
    case 6:
    case 7:
        return NewHostObject();
    default:
        return {};
    }
}

ns::Object AnswerKey(ns::Object, objc::SEL, ns::Object) {
    return NextAnswer();
}
ns::Object Answer(ns::Object, objc::SEL) {
    return NextAnswer();
}
double AnswerNumber(ns::Object, objc::SEL) {
    return 4.7e-310;
}
long AnswerInteger(ns::Object, objc::SEL) {
    return g_input->Take<long>() | 1; // the address of nothing
}
ns::Object AnswerWithArgument(ns::Object, objc::SEL, ns::Object argument) {
    return argument;
}
bool AnswerKind(ns::Object self, objc::SEL, objc::Class cls) {
    const auto choice = g_input->Take<std::uint8_t>();
    RaiseIfTold(choice);
    return objc::SendSuper<"isKindOfClass:", bool>(self, cls);
}

template <objc::FixedString Name> void AddShaped(objc::Class cls, unsigned shape) {
    const objc::MethodEntry shapes[] = {
        objc::MethodNamed<Name, &Answer>(),
        objc::MethodNamed<Name, &AnswerNumber>(),
        objc::MethodNamed<Name, &AnswerInteger>(),
        objc::MethodNamed<Name, &AnswerWithArgument>(),
    };
    if (shape < std::size(shapes)) {
        const objc::MethodEntry one[] = {shapes[shape]};
        objc::AddMethods(cls, one);
    }
}

/// The class whose three getters have these shapes; a shape of 4 is none at all. Made once.
objc::Class ClassOfShape(unsigned shape) {
    static std::array<objc::Class, 250> classes{};
    objc::Class &cls = classes[shape];
    if (cls == nullptr) {
        cls = objc::AllocateClass(("FuzzHost" + std::to_string(shape)).c_str(), "NSObject");
        objc_registerClassPair(cls);
        const objc::MethodEntry common[] = {objc::MethodNamed<"valueForKey:", &AnswerKey>()};
        objc::AddMethods(cls, common);
        AddShaped<"context">(cls, shape % 5);
        AddShaped<"store">(cls, shape / 5 % 5);
        AddShaped<"commentStore">(cls, shape / 25 % 5);
        if (shape >= 125) {
            const objc::MethodEntry odd[] = {objc::MethodNamed<"description", &Answer>(),
                                             objc::MethodNamed<"isKindOfClass:", &AnswerKind>()};
            objc::AddMethods(cls, odd);
        }
    }
    return cls;
}

ns::Object NewHostObject() {
    constexpr int kDeepest = 50;
    if (g_depth >= kDeepest) {
        return {};
    }
    ++g_depth;
    const objc::Class cls = ClassOfShape(g_input->Take<std::uint8_t>() % 250U);
    const auto made = objc::Ref<ns::Object>::Adopt(objc::Send<"new", ns::Object>(ns::Object{objc::AsObject(cls)}));
    g_made->addObject(made.get());
    return made.get();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    fuzz::InstallPlatform();
    const sim::AutoreleasePool pool;
    fuzz::Input input(bytes, size);
    g_input = &input;
    g_made = ns::New<ns::MutableArray>();
    g_depth = 0;
    const objc::Ref<ns::String> identity = corvel::douyin::ProbeRoomIdentity(NewHostObject());
    fuzz::Require(!identity || (identity->length() >= 1 && identity->length() <= 63),
                  "an identifier of another length");
    g_made = nullptr;
    return 0;
}
