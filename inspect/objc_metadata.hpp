#pragma once
// What an image says of its Objective-C classes.
// https://github.com/apple-oss-distributions/objc4/blob/main/runtime/objc-runtime-new.h

#include "inspect/image.hpp"

namespace inspect {

/// A method as it is declared. The texts are the image's.
struct Method {
    std::string_view selector;
    std::string_view types;
};

/// An instance variable as it is declared.
struct Variable {
    std::string_view name;
    std::string_view type;
};

/// A class of the image.
struct ClassEntry {
    std::string_view name;
    std::uint64_t address = 0;
};

/// Methods that the image adds to a class of its own or another image's.
struct CategoryEntry {
    std::string className;
    std::uint64_t methods = 0; // the address of their list
};

std::vector<ClassEntry> ReadClasses(const Image &image);
std::vector<CategoryEntry> ReadCategories(const Image &image);

/// The name of a class's superclass; empty for a root.
std::string SuperclassName(const Image &image, const ClassEntry &entry);

/// The instance methods of the class itself, those of categories left aside.
std::vector<Method> ReadMethods(const Image &image, const ClassEntry &entry);
/// The methods of the list at the address; none for 0.
std::vector<Method> ReadMethodList(const Image &image, std::uint64_t address);

/// The instance variables of the class itself that have a name.
std::vector<Variable> ReadVariables(const Image &image, const ClassEntry &entry);

} // namespace inspect
