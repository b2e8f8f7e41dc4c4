// Changed methods as the phone's runtime has them: from then on every object of the class and of the classes that
// inherit the method runs the new implementation, also those that have been messaged before. The desktop's runtime
// leaves the old one in the dispatch tables of subclasses when a method is set, and builds the tables of all subclasses
// anew, at once, whenever one is added. Here a table is thrown away, and the runtime builds it again when the class is
// messaged next.

#include "runtime/method_caches.hpp"

#include "objc/class_builder.hpp"

#include <dlfcn.h>
#include <utility>
#include <vector>

extern "C" {
struct sarray;
struct objc_mutex;
extern sarray *__objc_uninstalled_dtable;
extern objc_mutex *__objc_runtime_mutex;
int objc_mutex_lock(objc_mutex *mutex);
int objc_mutex_unlock(objc_mutex *mutex);
int objc_getClassList(objc::Class *classes, int room);
void sarray_free(sarray *table);
objc::IMP class_getMethodImplementation(objc::Class cls, objc::SEL selector);
void __objc_update_dispatch_table_for_class(objc::Class cls);
}

namespace sim {
namespace {

// Classes and methods as compilers lay them out for this runtime (its ABI 8).

struct MethodLayout {
    objc::SEL selector;
    const char *types;
    objc::IMP implementation;
};

struct MethodList {
    MethodList *next;
    int count;
    MethodLayout methods[1]; // as many as are counted
};

struct ClassLayout {
    ClassLayout *metaclass;
    ClassLayout *superclass; // a name until it is resolved
    const char *name;
    long version;
    unsigned long flags;
    long instanceSize;
    void *variables;
    MethodList *methods;
    sarray *table;
    ClassLayout *firstSubclass;
    ClassLayout *nextSibling;
};

constexpr unsigned long kInitialized = 0x4;

ClassLayout *LayoutOf(objc::Class cls) {
    return reinterpret_cast<ClassLayout *>(cls);
}

class RuntimeLock {
  public:
    RuntimeLock() {
        objc_mutex_lock(__objc_runtime_mutex);
    }
    RuntimeLock(const RuntimeLock &) = delete;
    RuntimeLock &operator=(const RuntimeLock &) = delete;
    ~RuntimeLock() {
        objc_mutex_unlock(__objc_runtime_mutex);
    }
};

/// What the runtime does itself; right for a class that is being initialized and has a table in preparation.
void UpdateAsTheRuntime(ClassLayout *cls) {
    using Update = void (*)(ClassLayout *);
    static const auto own = reinterpret_cast<Update>(dlsym(RTLD_NEXT, "__objc_update_dispatch_table_for_class"));
    own(cls);
}

/// Throws the tables of a class and of its subclasses away.
void DropTables(ClassLayout *cls) {
    if (cls->table == __objc_uninstalled_dtable) {
        if ((cls->flags & kInitialized) != 0) {
            UpdateAsTheRuntime(cls);
        }
        return; // no subclass has one then
    }
    sarray_free(std::exchange(cls->table, __objc_uninstalled_dtable));
    for (ClassLayout *subclass = cls->firstSubclass; subclass != nullptr; subclass = subclass->nextSibling) {
        DropTables(subclass);
    }
}

/// Whether the method is the class's own one. Looks at its lists alone: a lookup would initialise the class.
bool Owns(const ClassLayout *cls, const MethodLayout *method) {
    for (const MethodList *list = cls->methods; list != nullptr; list = list->next) {
        if (method >= list->methods && method < list->methods + list->count) {
            return true;
        }
    }
    return false;
}

/// All classes that are registered.
std::vector<objc::Class> AllClasses() {
    std::vector<objc::Class> classes(static_cast<std::size_t>(objc_getClassList(nullptr, 0)));
    const int count = objc_getClassList(classes.data(), static_cast<int>(classes.size()));
    classes.resize(static_cast<std::size_t>(count));
    return classes;
}

/// The class, or the metaclass, that the method stands in; nil when no class has it.
objc::Class OwnerOf(objc::Method method) {
    const auto *const wanted = reinterpret_cast<const MethodLayout *>(method);
    for (const objc::Class cls : AllClasses()) {
        for (const objc::Class holder : {cls, objc::MetaclassOf(cls)}) {
            if (Owns(LayoutOf(holder), wanted)) {
                return holder;
            }
        }
    }
    return nullptr;
}

} // namespace

objc::IMP SetImplementation(objc::Class owner, objc::Method method, objc::IMP implementation) {
    const RuntimeLock lock;
    const objc::IMP before = std::exchange(reinterpret_cast<MethodLayout *>(method)->implementation, implementation);
    if (owner != nullptr) {
        DropTables(LayoutOf(owner));
    }
    return before;
}

void BuildTables() {
    for (const objc::Class cls : AllClasses()) {
        for (const objc::Class holder : {cls, objc::MetaclassOf(cls)}) {
            const ClassLayout *layout = LayoutOf(holder);
            if (layout->table == __objc_uninstalled_dtable && (layout->flags & kInitialized) != 0) {
                class_getMethodImplementation(holder, objc::Selector<"class">());
            }
        }
    }
}

} // namespace sim

extern "C" {

objc::IMP method_setImplementation(objc::Method method, objc::IMP implementation) {
    return sim::SetImplementation(sim::OwnerOf(method), method, implementation);
}

/// The runtime's own name for it, so that its class_addMethod ends here too.
void __objc_update_dispatch_table_for_class(objc::Class cls) {
    const sim::RuntimeLock lock;
    sim::DropTables(sim::LayoutOf(cls));
}
}
