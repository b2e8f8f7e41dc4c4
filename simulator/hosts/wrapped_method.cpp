#include "hosts/wrapped_method.hpp"

#include "hosts/host_class.hpp"
#include "hosts/inventory.hpp"
#include "hosts/types.hpp"
#include "runtime/lasting.hpp"

#include <deque>
#include <span>

namespace sim::hosts {
namespace {

/// Everything that one wrap needs, for as long as the process lives.
struct Wrap {
    std::string selector;
    std::vector<const Type *> types; // result, receiver, selector, arguments
    std::vector<ffi_type *> ffiTypes;
    ffi_cif interface{};
    objc::IMP before = nullptr;
};

/// The closure's body.
void Run(ffi_cif *, void *result, void **arguments, void *context) {
    Wrap &wrap = *static_cast<Wrap *>(context);
    const ns::Object self{*static_cast<objc::id *>(arguments[0])};
    std::vector<Fact> facts{{Bare("wrapped")}};
    for (std::size_t i = 3; i < wrap.types.size(); ++i) {
        facts.push_back(wrap.types[i]->describe(Load(*wrap.types[i], arguments[i - 1])));
    }
    Arrive(self, wrap.selector.c_str(), facts);
    Slot answer{};
    if (!Refuses(self, wrap.selector.c_str())) {
        ffi_call(&wrap.interface, reinterpret_cast<void (*)()>(wrap.before), &answer, arguments);
    }
    StoreResult(*wrap.types[0], answer, result);
}

} // namespace

void WrapMethod(WordReader &words) {
    const std::string className = words.Name("a class");
    const std::string name = words.Name("a selector");
    const objc::Class cls = objc_getClass(className.c_str());
    const objc::SEL selector = sel_registerName(name.c_str());
    const objc::Method method = cls != nullptr ? class_getInstanceMethod(cls, selector) : nullptr;
    if (method == nullptr) {
        words.Fail("the app has no method " + className + " " + name);
    }
    // Foundation's own have the desktop's letter for BOOL.
    std::string encoding = method_getTypeEncoding(method);
    encoding.front() = encoding.front() == 'C' ? 'B' : encoding.front();
    Wrap &wrap = Lasting<std::deque<Wrap>>().emplace_back();
    wrap.selector = name;
    wrap.types = TypesOf(encoding.c_str(), words.place());
    for (const Type *type : std::span(wrap.types).subspan(1)) {
        wrap.ffiTypes.push_back(type->ffi);
    }
    wrap.before = method_getImplementation(method);
    void *code = nullptr;
    auto *const closure = static_cast<ffi_closure *>(ffi_closure_alloc(sizeof(ffi_closure), &code));
    ffi_prep_cif(&wrap.interface, FFI_DEFAULT_ABI, static_cast<unsigned>(wrap.ffiTypes.size()), wrap.types[0]->ffi,
                 wrap.ffiTypes.data());
    ffi_prep_closure_loc(closure, &wrap.interface, &Run, &wrap, code);
    const auto replacement = reinterpret_cast<objc::IMP>(code);
    if (!class_addMethod(cls, selector, replacement, encoding.c_str())) { // adding fails where the class has its own
        method_setImplementation(method, replacement);
    }
    TheInventory().methods.insert({{className, name}, false});
    TheInventory().selectors.insert(name);
}

} // namespace sim::hosts
