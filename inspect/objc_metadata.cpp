#include "inspect/objc_metadata.hpp"

namespace inspect {
namespace {

constexpr std::uint64_t kPointerSize = 8;

// Of a class: where the pointer to the superclass and that to the constant part stand, whose low bits are flags.
constexpr std::uint64_t kSuperclass = 8;
constexpr std::uint64_t kConstantPart = 32;
constexpr std::uint64_t kFlagBits = 7;
// Of the constant part.
constexpr std::uint64_t kName = 24;
constexpr std::uint64_t kMethods = 32;
constexpr std::uint64_t kVariables = 48;
// Of a category.
constexpr std::uint64_t kCategoryClass = 8;
constexpr std::uint64_t kCategoryMethods = 16;

// Of a variable.
constexpr std::uint64_t kVariableName = 8;
constexpr std::uint64_t kVariableType = 16;

// A list begins with the size of its entries, which shares its word with flags, and their number.
constexpr std::uint64_t kListHead = 8;
constexpr std::uint32_t kRelative = 0x80000000;
constexpr std::uint32_t kDirectSelectors = 0x40000000;
constexpr std::uint32_t kEntrySizeBits = 0xFFFC;

constexpr std::string_view kClassSymbol = "_OBJC_CLASS_$_";

std::uint64_t ConstantPart(const Image &image, std::uint64_t cls) {
    const std::uint64_t address = image.PointerAt(cls + kConstantPart).address & ~kFlagBits;
    if (address == 0) {
        image.Complain("a class without its description");
    }
    return address;
}

std::string_view NameOf(const Image &image, std::uint64_t cls) {
    return image.TextAt(image.PointerAt(ConstantPart(image, cls) + kName).address);
}

/// The name of the class that a pointer leads to; empty for nil.
std::string NameBehind(const Image &image, const Pointer &pointer) {
    if (!pointer.symbol.empty()) {
        return std::string(pointer.symbol.starts_with(kClassSymbol) ? pointer.symbol.substr(kClassSymbol.size())
                                                                    : pointer.symbol);
    }
    return pointer.address == 0 ? std::string{} : std::string(NameOf(image, pointer.address));
}

/// The targets of the pointers that fill the sections of the name.
std::vector<std::uint64_t> Listed(const Image &image, std::string_view section) {
    std::vector<std::uint64_t> targets;
    for (const Range &range : image.Sections(section)) {
        if (range.size > image.RoomAt(range.address)) {
            image.Complain("the section " + std::string(section) + " reaches outside of the file");
        }
        for (std::uint64_t at = 0; at + kPointerSize <= range.size; at += kPointerSize) {
            if (const std::uint64_t target = image.PointerAt(range.address + at).address; target != 0) {
                targets.push_back(target);
            }
        }
    }
    return targets;
}

struct List {
    std::uint64_t first;
    std::uint32_t entrySize;
    std::uint32_t flags;
    std::uint32_t count;
};

/// The list at the address, whose entries have at least that size and lie in the file.
List ListAt(const Image &image, std::uint64_t address, std::uint32_t relativeSize, std::uint32_t size) {
    const std::uint32_t head = image.WordAt(address);
    const List list{.first = address + kListHead,
                    .entrySize = head & kEntrySizeBits,
                    .flags = head & ~(kEntrySizeBits | 3),
                    .count = image.WordAt(address + 4)};
    const std::uint32_t least = (list.flags & kRelative) != 0 ? relativeSize : size;
    if (list.entrySize < least || std::uint64_t{list.count} * list.entrySize > image.RoomAt(list.first)) {
        image.Complain("a list of a class's methods or variables reaches outside of the file");
    }
    return list;
}

/// Where a relative offset leads that stands at the address.
std::uint64_t Relative(const Image &image, std::uint64_t address) {
    return address + static_cast<std::int64_t>(static_cast<std::int32_t>(image.WordAt(address)));
}

} // namespace

std::vector<ClassEntry> ReadClasses(const Image &image) {
    std::vector<ClassEntry> classes;
    for (const std::uint64_t address : Listed(image, "__objc_classlist")) {
        classes.push_back({.name = NameOf(image, address), .address = address});
    }
    return classes;
}

std::vector<CategoryEntry> ReadCategories(const Image &image) {
    std::vector<CategoryEntry> categories;
    for (const char *section : {"__objc_catlist", "__objc_catlist2"}) {
        for (const std::uint64_t address : Listed(image, section)) {
            categories.push_back({.className = NameBehind(image, image.PointerAt(address + kCategoryClass)),
                                  .methods = image.PointerAt(address + kCategoryMethods).address});
        }
    }
    return categories;
}

std::string SuperclassName(const Image &image, const ClassEntry &entry) {
    return NameBehind(image, image.PointerAt(entry.address + kSuperclass));
}

std::vector<Method> ReadMethods(const Image &image, const ClassEntry &entry) {
    return ReadMethodList(image, image.PointerAt(ConstantPart(image, entry.address) + kMethods).address);
}

std::vector<Method> ReadMethodList(const Image &image, std::uint64_t address) {
    std::vector<Method> methods;
    if (address == 0) {
        return methods;
    }
    const List list = ListAt(image, address, 12, 24);
    if ((list.flags & kDirectSelectors) != 0) {
        image.Complain("taken from the system's shared cache, where selectors lie elsewhere");
    }
    for (std::uint32_t i = 0; i < list.count; ++i) {
        const std::uint64_t at = list.first + std::uint64_t{i} * list.entrySize;
        if ((list.flags & kRelative) != 0) {
            // The first offset leads to a pointer to the name, which the loader makes unique.
            methods.push_back({.selector = image.TextAt(image.PointerAt(Relative(image, at)).address),
                               .types = image.TextAt(Relative(image, at + 4))});
        } else {
            methods.push_back({.selector = image.TextAt(image.PointerAt(at).address),
                               .types = image.TextAt(image.PointerAt(at + kPointerSize).address)});
        }
    }
    return methods;
}

std::vector<Variable> ReadVariables(const Image &image, const ClassEntry &entry) {
    std::vector<Variable> variables;
    const std::uint64_t address = image.PointerAt(ConstantPart(image, entry.address) + kVariables).address;
    if (address == 0) {
        return variables;
    }
    const List list = ListAt(image, address, 32, 32);
    for (std::uint32_t i = 0; i < list.count; ++i) {
        // An anonymous bit field has no name.
        const std::uint64_t at = list.first + std::uint64_t{i} * list.entrySize;
        if (const Pointer name = image.PointerAt(at + kVariableName)) {
            variables.push_back({.name = image.TextAt(name.address),
                                 .type = image.TextAt(image.PointerAt(at + kVariableType).address)});
        }
    }
    return variables;
}

} // namespace inspect
