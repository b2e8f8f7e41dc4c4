#include "runtime/user_defaults.hpp"

#include "apple/foundation/data.hpp"
#include "apple/foundation/notifications.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "objc/guard.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/exception.hpp"
#include "runtime/failures.hpp"
#include "runtime/foreign_leaks.hpp"
#include "runtime/lasting.hpp"
#include "runtime/library_deeds.hpp"
#include "runtime/replace_method.hpp"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <utility>

extern "C" {
/// Tells Foundation the process's arguments and environment, in place of those that it found when it was loaded.
void GSInitializeProcess(int argumentCount, char **arguments, char **environment);
}

namespace sim {
namespace {

constexpr const char *kDomain = "corvel-sim";
constexpr unsigned long kBinaryFormat = 200;

struct Storage {
    std::filesystem::path directory;
    objc::Ref<ns::Data> written; // what the file holds now, so that synchronising unchanged values touches no disk
};

ns::String DefaultsFile() {
    return ns::String::stringWithUTF8String((Lasting<Storage>().directory / "UserDefaults.plist").c_str());
}

struct PropertyLists : objc::Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSPropertyListSerialization";
};

using ErrorText = ns::String *;

/// First use of the defaults, at a known time: Foundation leaks a path at it.
ns::UserDefaults OpenDefaults() {
    const ForeignLeaks path;
    return ns::UserDefaults::standardUserDefaults();
}

void Load(ns::UserDefaults defaults) {
    const auto data = objc::SendClass<ns::Data, "dataWithContentsOfFile:", ns::Data>(DefaultsFile());
    if (!data) {
        return;
    }
    Lasting<Storage>().written = data;
    ns::Object values;
    objc::Guard([&] {
        values = objc::SendClass<PropertyLists, "propertyListFromData:mutabilityOption:format:errorDescription:",
                                 ns::Object>(data, 0UL, static_cast<unsigned long *>(nullptr), ErrorText{nullptr});
    });
    if (!values.Is<ns::Dictionary>()) {
        std::fprintf(stderr, "%s holds no user defaults; starting without any\n", DefaultsFile().UTF8String());
        return;
    }
    objc::Send<"setPersistentDomain:forName:", void>(defaults, objc::As<ns::Dictionary>(values),
                                                     ns::String::stringWithUTF8String(kDomain));
}

bool Store(ns::UserDefaults defaults) {
    objc::Ref<ns::Data> &written = Lasting<Storage>().written;
    const ns::Dictionary values = StoredPreferences();
    if (!values && !written) {
        return true;
    }
    // The binary format alone keeps every string unit and every kind of number.
    const auto data = objc::SendClass<PropertyLists, "dataFromPropertyList:format:errorDescription:", ns::Data>(
        ns::Object(values ? values : ns::MutableDictionary::dictionary()), kBinaryFormat, ErrorText{nullptr});
    if (!data) {
        return false;
    }
    if (data.isEqual(written.get())) {
        return true;
    }
    // Atomically: a run cut short leaves the old values whole.
    if (!objc::Send<"writeToFile:atomically:", bool>(data, DefaultsFile(), true)) {
        std::fprintf(stderr, "cannot write %s\n", DefaultsFile().UTF8String());
        return false;
    }
    written = data;
    return true;
}

// Foundation tells of a change while it holds the lock of the defaults: an observer that reads them on another thread,
// while the writer waits for it, would never return. On the phone the lock is free by then, so the telling waits for
// it.

Original<void, ns::UserDefaults, ns::Object, ns::String> originalSet = nullptr;
Original<void, ns::UserDefaults, ns::String> originalRemove = nullptr;
Original<void, ns::NotificationCenter, ns::String, ns::Object> originalPost = nullptr;

/// The writes of this thread that are under way, and whether one of them has something to tell.
thread_local int writes = 0;
thread_local bool changed = false;

class Write {
  public:
    Write() {
        ++writes;
    }
    Write(const Write &) = delete;
    Write &operator=(const Write &) = delete;
    ~Write() {
        --writes;
    }
};

void TellOfChange(ns::UserDefaults self) {
    if (writes == 0 && std::exchange(changed, false)) {
        ns::NotificationCenter::defaultCenter().postNotificationName(NSUserDefaultsDidChangeNotification, self);
    }
}

void Post(ns::NotificationCenter self, objc::SEL selector, ns::String name, ns::Object object) {
    if (writes > 0 && name.isEqualToString(NSUserDefaultsDidChangeNotification)) {
        changed = true;
    } else {
        originalPost(self, selector, name, object);
    }
}

/// Before each change: notes whose it is, and fails when it is to.
[[clang::always_inline]] inline void BeginChange(ns::String key) {
    NoteDeed("key", key.UTF8String(), __builtin_frame_address(0));
    if (Fails(Failure::kDefaults)) {
        RaiseException("NSInternalInconsistencyException", "the defaults cannot be written");
    }
}

void SetObject(ns::UserDefaults self, objc::SEL selector, ns::Object value, ns::String key) {
    BeginChange(key);
    {
        const Write write;
        originalSet(self, selector, value, key);
    }
    TellOfChange(self);
}

void RemoveObject(ns::UserDefaults self, objc::SEL selector, ns::String key) {
    BeginChange(key);
    {
        const Write write;
        originalRemove(self, selector, key);
    }
    TellOfChange(self);
}

bool Synchronize(ns::UserDefaults self, objc::SEL) {
    const AutoreleasePool pool;
    return self == ns::UserDefaults::standardUserDefaults() && Store(self);
}

} // namespace

void SetStateDirectory(const std::string &directory) {
    std::error_code failure;
    std::filesystem::path &state = Lasting<Storage>().directory;
    state = std::filesystem::absolute(directory);
    std::filesystem::create_directories(state, failure);
    if (failure) {
        std::fprintf(stderr, "cannot make the state directory %s: %s\n", directory.c_str(), failure.message().c_str());
        std::exit(1);
    }

    // The developer's settings must not show: neither in texts of dates and numbers ...
    setenv("TZ", "UTC", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("LANG", "C.UTF-8", 1);

    // ... nor through Foundation's own configuration and defaults in the home directory. This file keeps it from both.
    const std::filesystem::path configuration = state / "GNUstep.conf";
    std::ofstream(configuration) << "GNUSTEP_USER_CONFIG_FILE=.corvel-sim-has-none\n"
                                 << "GNUSTEP_USER_DEFAULTS_DIR=\"" << state.string() << "/Foundation\"\n";
    std::string configurationVariable = "GNUSTEP_CONFIG_FILE=" + configuration.string();
    std::string zone = "TZ=UTC";
    std::string locale = "LC_ALL=C.UTF-8";
    char *environment[] = {configurationVariable.data(), zone.data(), locale.data(), nullptr};
    // No arguments either: Foundation would take those of the command line for defaults.
    std::string name = kDomain;
    char *arguments[] = {name.data(), nullptr};
    const ForeignLeaks description;
    GSInitializeProcess(1, arguments, environment);
}

ns::Dictionary StoredPreferences() {
    return objc::Send<"persistentDomainForName:", ns::Dictionary>(ns::UserDefaults::standardUserDefaults(),
                                                                  ns::String::stringWithUTF8String(kDomain));
}

void InstallUserDefaults() {
    ReplaceMethod("NSUserDefaults", objc::Selector<"synchronize">(), &Synchronize);
    originalSet = ReplaceMethod("NSUserDefaults", objc::Selector<"setObject:forKey:">(), &SetObject);
    originalRemove = ReplaceMethod("NSUserDefaults", objc::Selector<"removeObjectForKey:">(), &RemoveObject);
    originalPost = ReplaceMethod("NSNotificationCenter", objc::Selector<"postNotificationName:object:">(), &Post);
    Load(OpenDefaults());
    std::atexit([] {
        const AutoreleasePool pool;
        Store(ns::UserDefaults::standardUserDefaults());
    });
}

} // namespace sim
