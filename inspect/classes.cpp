#include "inspect/classes.hpp"

#include "adapters/method_types.hpp"
#include "inspect/bad_input.hpp"
#include "inspect/platform_classes.hpp"

#include <algorithm>
#include <cctype>

namespace inspect {
namespace {

/// How deep classes are ever nested; far more than any app's.
constexpr std::size_t kDeepest = 1000;

std::optional<FoundMethod> Among(const std::vector<Method> &methods, std::string_view selector,
                                 const std::string &className, const Image &image) {
    const auto found = std::ranges::find(methods, selector, &Method::selector);
    if (found == methods.end()) {
        return std::nullopt;
    }
    return FoundMethod{.className = className, .types = std::string(found->types), .image = image.name()};
}

/// The key as it stands behind another word.
std::string WithCapital(std::string key) {
    key[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(key[0])));
    return key;
}

} // namespace

Classes::Classes(const std::vector<Image> &images) {
    for (const Image &image : images) {
        for (const ClassEntry &entry : ReadClasses(image)) {
            classes_.try_emplace(std::string(entry.name), Entry{.image = &image, .entry = entry});
            if (entry.name.starts_with("_Tt")) {
                swiftNames_.emplace_back(entry.name);
            }
        }
        for (CategoryEntry &category : ReadCategories(image)) {
            additions_.emplace(std::move(category.className), Addition{.image = &image, .methods = category.methods});
        }
    }
}

bool Classes::Has(const std::string &className) const {
    return classes_.contains(className);
}

std::string Classes::ImageOf(const std::string &className) const {
    const auto found = classes_.find(className);
    return found != classes_.end() ? found->second.image->name() : std::string{};
}

std::string Classes::SwiftOnly(const std::string &className) const {
    const std::string ending = std::to_string(className.size()) + className;
    const auto found =
        std::ranges::find_if(swiftNames_, [&](const std::string &name) { return name.ends_with(ending); });
    return found != swiftNames_.end() ? *found : std::string{};
}

std::vector<std::string> Classes::Lineage(const std::string &className) const {
    std::vector<std::string> lineage;
    for (std::string name = className; !name.empty();) {
        lineage.push_back(name);
        if (lineage.size() > kDeepest) {
            throw BadInput(ImageOf(className) + ": the class " + className + " descends from itself");
        }
        const auto found = classes_.find(name);
        name = found != classes_.end() ? SuperclassName(*found->second.image, found->second.entry)
                                       : std::string(PlatformSuperclass(name));
    }
    return lineage;
}

std::optional<FoundMethod> Classes::FindOwn(const std::string &className, std::string_view selector) const {
    // A category's method hides the class's own, and those of categories that were added before.
    for (auto [first, at] = additions_.equal_range(className); at != first;) {
        const Addition &addition = (--at)->second;
        if (auto found =
                Among(ReadMethodList(*addition.image, addition.methods), selector, className, *addition.image)) {
            return found;
        }
    }
    if (const auto found = classes_.find(className); found != classes_.end()) {
        const Image &image = *found->second.image;
        return Among(ReadMethods(image, found->second.entry), selector, className, image);
    }
    for (const PlatformMethod &method : PlatformMethods()) {
        if (method.className == className && method.selector == selector) {
            return FoundMethod{.className = className, .types = std::string(method.types), .image = {}};
        }
    }
    return std::nullopt;
}

std::optional<FoundMethod> Classes::Find(const std::string &className, std::string_view selector) const {
    for (const std::string &level : Lineage(className)) {
        if (auto found = FindOwn(level, selector)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<FoundKey> Classes::FindVariable(const std::string &className, const std::string &key) const {
    const std::string upper = WithCapital(key);
    const std::string names[] = {"_" + key, "_is" + upper, key, "is" + upper};
    for (const std::string &level : Lineage(className)) {
        const auto found = classes_.find(level);
        if (found == classes_.end()) {
            continue;
        }
        for (const Variable &variable : ReadVariables(*found->second.image, found->second.entry)) {
            if (std::ranges::find(names, variable.name) != std::end(names)) {
                return FoundKey{.className = level,
                                .types = std::string(variable.type),
                                .isObject = variable.type.starts_with('@') && !variable.type.starts_with("@?")};
            }
        }
    }
    return std::nullopt;
}

std::optional<FoundKey> Classes::FindSetter(const std::string &className, const std::string &key) const {
    const std::string upper = WithCapital(key);
    for (const std::string &name : {"set" + upper + ":", "_set" + upper + ":"}) {
        if (const auto found = Find(className, name)) {
            return FoundKey{.className = found->className,
                            .types = found->types,
                            .isObject = corvel::TakesObjectFirst(found->types.c_str())};
        }
    }
    return FindVariable(className, key);
}

std::optional<FoundKey> Classes::FindGetter(const std::string &className, const std::string &key) const {
    const std::string upper = WithCapital(key);
    for (const std::string &name : {"get" + upper, key, "is" + upper, "_" + key}) {
        if (const auto found = Find(className, name)) {
            return FoundKey{.className = found->className,
                            .types = found->types,
                            .isObject = corvel::IsObjectGetter(found->types.c_str())};
        }
    }
    return FindVariable(className, key);
}

std::string Classes::UnknownAncestor(const std::string &className) const {
    for (const std::string &level : Lineage(className)) {
        if (!Has(level) && !IsPlatformClass(level)) {
            return level;
        }
    }
    return {};
}

} // namespace inspect
