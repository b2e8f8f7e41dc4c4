#include "runtime/user_defaults.hpp"

#include "apple/foundation/user_defaults.hpp"
#include "objc/guard.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/foreign_leaks.hpp"
#include "runtime/replace_method.hpp"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

extern "C" {
/// Tells Foundation the process's arguments and environment, in place of those that it found when it was loaded.
void GSInitializeProcess(int argumentCount, char **arguments, char **environment);
}

namespace sim {
namespace {

constexpr const char *kDomain = "corvel-sim";
constexpr unsigned long kBinaryFormat = 200;

/// Never destroyed: the last write happens while the process ends.
std::filesystem::path &StateDirectory() {
    static auto &directory = *new std::filesystem::path;
    return directory;
}

std::filesystem::path DefaultsFile() {
    return StateDirectory() / "UserDefaults.plist";
}

struct Data : objc::Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSData";
};

struct PropertyLists : objc::Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSPropertyListSerialization";
};

using ErrorText = ns::String *;

std::string ReadFile(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// What the file holds now, so that synchronising unchanged values touches no disk.
std::string &Written() {
    static auto &written = *new std::string;
    return written;
}

/// First use of the defaults, at a known time: Foundation leaks a path at it.
ns::UserDefaults OpenDefaults() {
    const ForeignLeaks path;
    return ns::UserDefaults::standardUserDefaults();
}

void Load(ns::UserDefaults defaults) {
    Written() = ReadFile(DefaultsFile());
    if (Written().empty()) {
        return;
    }
    const auto data = objc::SendClass<Data, "dataWithBytes:length:", Data>(
        static_cast<const void *>(Written().data()), static_cast<unsigned long>(Written().size()));
    ns::Object values;
    objc::Guard([&] {
        values = objc::SendClass<PropertyLists, "propertyListFromData:mutabilityOption:format:errorDescription:",
                                 ns::Object>(data, 0UL, static_cast<unsigned long *>(nullptr), ErrorText{nullptr});
    });
    if (!values || !values.isKindOfClass(objc::ClassOf<ns::Dictionary>())) {
        std::fprintf(stderr, "%s holds no user defaults; starting without any\n", DefaultsFile().c_str());
        return;
    }
    objc::Send<"setPersistentDomain:forName:", void>(defaults, objc::As<ns::Dictionary>(values),
                                                     ns::String::stringWithUTF8String(kDomain));
}

/// Writes beside the file and renames, so that a run cut short leaves the old values whole.
bool Replace(const std::filesystem::path &path, const std::string &bytes) {
    std::filesystem::path fresh = path;
    fresh += ".new";
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    std::error_code failure;
    if (file) {
        std::filesystem::rename(fresh, path, failure);
    }
    if (!file || failure) {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        return false;
    }
    return true;
}

bool Store(ns::UserDefaults defaults) {
    const auto values =
        objc::Send<"persistentDomainForName:", ns::Dictionary>(defaults, ns::String::stringWithUTF8String(kDomain));
    if (!values && Written().empty()) {
        return true;
    }
    // The binary format alone keeps every string unit and every kind of number.
    const auto data = objc::SendClass<PropertyLists, "dataFromPropertyList:format:errorDescription:", Data>(
        ns::Object(values ? values : objc::SendClass<ns::Dictionary, "dictionary", ns::Dictionary>()), kBinaryFormat,
        ErrorText{nullptr});
    if (!data) {
        return false;
    }
    std::string bytes(objc::Send<"bytes", const char *>(data), objc::Send<"length", unsigned long>(data));
    if (bytes == Written()) {
        return true;
    }
    if (!Replace(DefaultsFile(), bytes)) {
        return false;
    }
    Written() = std::move(bytes);
    return true;
}

bool Synchronize(ns::UserDefaults self, objc::SEL) {
    const AutoreleasePool pool;
    return self == ns::UserDefaults::standardUserDefaults() && Store(self);
}

} // namespace

void SetStateDirectory(const std::string &directory) {
    std::error_code failure;
    StateDirectory() = std::filesystem::absolute(directory);
    std::filesystem::create_directories(StateDirectory(), failure);
    if (failure) {
        std::fprintf(stderr, "cannot make the state directory %s: %s\n", directory.c_str(), failure.message().c_str());
        std::exit(1);
    }

    // The developer's settings must not show: neither in texts of dates and numbers ...
    setenv("TZ", "UTC", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("LANG", "C.UTF-8", 1);

    // ... nor through Foundation's own configuration and defaults in the home directory. This file keeps it from both.
    const std::filesystem::path configuration = StateDirectory() / "GNUstep.conf";
    std::ofstream(configuration) << "GNUSTEP_USER_CONFIG_FILE=.corvel-sim-has-none\n"
                                 << "GNUSTEP_USER_DEFAULTS_DIR=\"" << StateDirectory().string() << "/Foundation\"\n";
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

void InstallUserDefaults() {
    ReplaceMethod("NSUserDefaults", objc::Selector<"synchronize">(), &Synchronize);
    Load(OpenDefaults());
    std::atexit([] {
        const AutoreleasePool pool;
        Store(ns::UserDefaults::standardUserDefaults());
    });
}

} // namespace sim
