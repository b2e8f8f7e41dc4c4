#pragma once
// The classes of all images of an app together, as they would be registered on the phone.

#include "inspect/objc_metadata.hpp"

#include <map>

namespace inspect {

/// Where a method was found.
struct FoundMethod {
    std::string className; // the class that defines it
    std::string types;
    std::string image; // the name of the image that it stands in; empty for the system's
};

/// By what key-value coding reaches the value under a key: a method, or an instance variable.
struct FoundKey {
    std::string className; // the class that defines it
    std::string types;     // the method's or the variable's
    bool isObject = false; // whether it takes, or gives, any object
};

class Classes {
  public:
    /// Of the images, which must outlive it. The first of two classes of one name counts, as on the phone.
    explicit Classes(const std::vector<Image> &images);

    bool Has(const std::string &className) const;
    /// The name of the image that holds the class; empty for a class of the system.
    std::string ImageOf(const std::string &className) const;
    /// The name, as Swift writes it, of a class of that name which only Swift knows by it; empty when there is none.
    std::string SwiftOnly(const std::string &className) const;

    /// The class and its ancestors. Throws BadInput for a class that is its own ancestor.
    std::vector<std::string> Lineage(const std::string &className) const;
    /// The instance method that an object of the class answers with.
    std::optional<FoundMethod> Find(const std::string &className, std::string_view selector) const;
    /// The instance method that the class itself defines.
    std::optional<FoundMethod> FindOwn(const std::string &className, std::string_view selector) const;
    /// By what key-value coding sets a value of the class's objects under the key.
    std::optional<FoundKey> FindSetter(const std::string &className, const std::string &key) const;
    /// By what it reads the value.
    std::optional<FoundKey> FindGetter(const std::string &className, const std::string &key) const;
    /// The nearest ancestor that is not in the app and that we know nothing of; empty when all are known.
    std::string UnknownAncestor(const std::string &className) const;

  private:
    std::optional<FoundKey> FindVariable(const std::string &className, const std::string &key) const;

    struct Entry {
        const Image *image;
        ClassEntry entry;
    };
    struct Addition {
        const Image *image;
        std::uint64_t methods;
    };

    std::map<std::string, Entry, std::less<>> classes_;
    std::multimap<std::string, Addition, std::less<>> additions_;
    std::vector<std::string> swiftNames_;
};

} // namespace inspect
