#include "platform.hpp"

#include "apple/foundation/data.hpp"
#include "input.hpp"
#include "render/characters.hpp"
#include "runtime/runtime.hpp"
#include "runtime/user_defaults.hpp"
#include "settings/zlib_codec.hpp"
#include "uikit/uikit.hpp"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace fuzz {
namespace {

ns::Data DataOf(std::span<const std::uint8_t> bytes) {
    return ns::Data::dataWithBytes(bytes.data(), bytes.size());
}

ns::String Wrapped(std::span<const std::uint8_t> stream) {
    return "DM1:"_ns.stringByAppendingString(DataOf(stream).base64EncodedStringWithOptions(0));
}

} // namespace

const char *MakeStateDirectory() {
    static std::string &path =
        *new std::string((std::filesystem::temp_directory_path() / "corvel-fuzz-XXXXXX").string());
    Require(mkdtemp(path.data()) != nullptr, "no state directory");
    std::atexit([] {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    });
    return path.c_str();
}

void InstallPlatform() {
    static const bool kInstalled = [] {
        sim::SetStateDirectory(MakeStateDirectory());
        static const sim::AutoreleasePool &pool = *new sim::AutoreleasePool;
        static_cast<void>(pool);
        sim::InstallRuntime();
        sim::InstallComposedCharacters();
        sim::RegisterUIKit();
        return true;
    }();
    static_cast<void>(kInstalled);
}

void Require(bool condition, const char *message) {
    if (!condition) {
        std::fprintf(stderr, "fuzz: %s\n", message);
        std::abort();
    }
}

ns::String CopiedText(const std::uint8_t *bytes, std::size_t size) {
    const std::span<const std::uint8_t> rest(bytes + (size > 0 ? 1 : 0), size > 0 ? size - 1 : 0);
    switch (size > 0 ? bytes[0] : 0) {
    case 1: {
        const auto packed = corvel::Deflate(rest);
        return packed ? Wrapped(*packed) : ns::String{};
    }
    case 2:
        return Wrapped(rest);
    case 3:
        return sim::StringOf(Input(rest.data(), rest.size()).TakeUnits(size));
    default: {
        // The string must outlive the reference that makes it.
        const auto text = objc::Ref<ns::String>::Adopt(
            ns::Alloc<ns::String>().initWithData(DataOf({bytes, size}), NSUTF8StringEncoding));
        return sim::Autoreleased(text);
    }
    }
}

} // namespace fuzz
