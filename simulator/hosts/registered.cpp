#include "hosts/registered.hpp"

#include "objc/runtime.hpp"

#include <cstdlib>
#include <map>
#include <set>

extern "C" int objc_getClassList(objc::Class *buffer, int count);

namespace sim::hosts {
namespace {

struct RegisteredMethod {
    std::string types;
    objc::IMP implementation;
};
using Methods = std::map<std::string, RegisteredMethod>;

std::set<objc::Class> before;
std::map<std::string, Methods> registered; // by the name of the class

std::set<objc::Class> AllClasses() {
    std::vector<objc::Class> list(static_cast<std::size_t>(objc_getClassList(nullptr, 0)));
    objc_getClassList(list.data(), static_cast<int>(list.size()));
    return {list.begin(), list.end()};
}

Methods MethodsOf(objc::Class cls) {
    unsigned count = 0;
    objc::Method *const list = class_copyMethodList(cls, &count);
    Methods methods;
    for (unsigned i = 0; i < count; ++i) {
        methods.try_emplace(sel_getName(method_getName(list[i])),
                            RegisteredMethod{method_getTypeEncoding(list[i]), method_getImplementation(list[i])});
    }
    std::free(static_cast<void *>(list));
    return methods;
}

} // namespace

void BeforeRegistration() {
    before = AllClasses();
}

void AfterRegistration() {
    for (const objc::Class cls : AllClasses()) {
        if (!before.contains(cls)) {
            registered.emplace(class_getName(cls), MethodsOf(cls));
        }
    }
}

Answer RegisteredClasses() {
    Answer answer;
    for (const auto &[name, methods] : registered) {
        answer.push_back(
            {script::Bare(name), script::Bare(class_getName(class_getSuperclass(objc_getClass(name.c_str()))))});
        for (const auto &[selector, method] : methods) {
            answer.push_back({script::Bare(name), script::Bare(selector), script::Bare(method.types)});
        }
    }
    return answer;
}

Answer ReplacedMethods() {
    Answer answer;
    for (const auto &[name, methods] : registered) {
        for (const auto &[selector, method] : MethodsOf(objc_getClass(name.c_str()))) {
            const auto found = methods.find(selector);
            if (found == methods.end() || found->second.implementation != method.implementation) {
                answer.push_back({script::Bare(name), script::Bare(selector)});
            }
        }
    }
    return answer;
}

} // namespace sim::hosts
