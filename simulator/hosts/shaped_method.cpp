#include "hosts/shaped_method.hpp"

#include "apple/foundation/number.hpp"
#include "hosts/host_class.hpp"
#include "hosts/keyed.hpp"
#include "runtime/lasting.hpp"

#include <algorithm>
#include <cstring>
#include <deque>

namespace sim::hosts {
namespace {

constexpr double kSample = 7.5;

/// Everything that one method needs, for as long as the process lives.
struct ShapedMethod {
    std::string selector;
    std::vector<const Type *> types; // result, receiver, selector, arguments
    std::vector<ffi_type *> ffiTypes;
    ffi_cif interface{};
    ShapedBody body;
};

/// The closure's body.
void Run(ffi_cif *, void *result, void **arguments, void *context) {
    const ShapedMethod &method = *static_cast<const ShapedMethod *>(context);
    const ns::Object self{*static_cast<objc::id *>(arguments[0])};
    std::vector<Slot> slots;
    std::vector<Fact> facts;
    for (std::size_t i = 3; i < method.types.size(); ++i) {
        slots.push_back(Load(*method.types[i], arguments[i - 1]));
        facts.push_back(method.types[i]->describe(slots.back()));
    }
    Arrive(self, method.selector.c_str(), facts);
    Slot answer{};
    if (!Refuses(self, method.selector.c_str())) {
        method.body(self, slots, answer);
    }
    StoreResult(*method.types[0], answer, result);
}

const Type *VariableType(const Plan::Property &property) {
    const std::vector<const Type *> types = TypesOf(property.type.c_str(), property.place);
    if (types.size() != 1 || types[0]->codes == "v" || types[0]->codes == "{") {
        throw script::ScriptError(property.place, "a property has one type, of an object or a number");
    }
    return types[0];
}

} // namespace

void AddShapedMethod(objc::Class cls, const std::string &selector, const std::string &encoding,
                     const script::Place &place, ShapedBody body) {
    ShapedMethod &method = Lasting<std::deque<ShapedMethod>>().emplace_back();
    method.selector = selector;
    method.types = TypesOf(encoding.c_str(), place);
    method.body = std::move(body);
    const auto arguments = static_cast<std::size_t>(std::ranges::count(selector, ':'));
    const auto is = [&method](std::size_t index, char code) {
        return method.types[index]->codes.find(code) != std::string_view::npos;
    };
    if (method.types.size() != arguments + 3 || !is(1, '@') || !is(2, ':')) {
        throw script::ScriptError(place, encoding + " is no encoding of a method " + selector +
                                             ": it has the result, @, : and a type for each argument");
    }
    for (const Type *type : std::span(method.types).subspan(1)) {
        method.ffiTypes.push_back(type->ffi);
    }
    void *code = nullptr;
    auto *const closure = static_cast<ffi_closure *>(ffi_closure_alloc(sizeof(ffi_closure), &code));
    ffi_prep_cif(&method.interface, FFI_DEFAULT_ABI, static_cast<unsigned>(method.ffiTypes.size()),
                 method.types[0]->ffi, method.ffiTypes.data());
    ffi_prep_closure_loc(closure, &method.interface, &Run, &method, code);
    class_addMethod(cls, sel_registerName(selector.c_str()), reinterpret_cast<objc::IMP>(code), encoding.c_str());
}

ShapedBody Echo(const std::string &encoding, const script::Place &place) {
    return [types = TypesOf(encoding.c_str(), place)](ns::Object self, std::span<const Slot> arguments, Slot &result) {
        const auto same = std::find(types.begin() + 3, types.end(), types[0]);
        if (same != types.end()) {
            result = arguments[static_cast<std::size_t>(same - types.begin() - 3)];
        } else if (types[0]->codes.starts_with('@')) {
            result.object = self.pointer;
        } else if (types[0]->codes.starts_with('{')) {
            for (std::size_t i = 0; i < std::size(result.reals); ++i) {
                result.reals[i] = static_cast<double>(i + 1);
            }
        } else {
            types[0]->unbox(result, ns::Number::numberWithDouble(kSample));
        }
    };
}

std::vector<InstanceVariable> PlannedVariables(const std::string &className) {
    std::vector<InstanceVariable> variables;
    for (const Plan::Property &property : ThePlan().properties) {
        if (property.className == className && !property.accessor) {
            variables.push_back({property.name, property.type, VariableType(property)->ffi->size});
        }
    }
    return variables;
}

void AddPlannedAccessors(const std::string &className) {
    for (const Plan::Property &property : ThePlan().properties) {
        if (property.className == className && property.accessor) {
            const Type *const type = VariableType(property);
            AddShapedMethod(objc_getClass(className.c_str()), property.name, property.type + "@:", property.place,
                            [type, key = property.name](ns::Object self, std::span<const Slot>, Slot &result) {
                                type->unbox(result, ValueUnder(self, key));
                            });
        }
    }
}

void RefreshPlannedVariable(ns::Object object, const std::string &key) {
    for (const Plan::Property &property : ThePlan().properties) {
        const objc::Class cls = objc_getClass(property.className.c_str());
        if (property.accessor || property.name != key || !object.isKindOfClass(cls)) {
            continue;
        }
        const Type *const type = VariableType(property);
        Slot slot{};
        type->unbox(slot, ValueUnder(object, key)); // held there: the variable itself retains nothing
        const std::ptrdiff_t offset = ivar_getOffset(class_getInstanceVariable(cls, key.c_str()));
        std::memcpy(reinterpret_cast<char *>(object.pointer) + offset, &slot, type->ffi->size);
    }
}

} // namespace sim::hosts
