#include "inspect/info_plist.hpp"

#include "inspect/bad_input.hpp"

#include <plist/plist.h>

#include <cstdlib>
#include <memory>

namespace inspect {
namespace {

/// Real ones have some thousand bytes.
constexpr std::size_t kLongest = std::size_t{1} << 20;

struct Freer {
    void operator()(void *plist) const {
        plist_free(plist);
    }
};

std::string TextUnder(plist_t dictionary, const char *key) {
    const plist_t node = plist_dict_get_item(dictionary, key);
    if (node == nullptr || plist_get_node_type(node) != PLIST_STRING) {
        return {};
    }
    std::uint64_t length = 0;
    const char *const text = plist_get_string_ptr(node, &length);
    return text != nullptr ? std::string(text, length) : std::string{};
}

} // namespace

BundleInfo ReadInfoPlist(const std::string &name, const std::string &bytes) {
    plist_t raw = nullptr;
    if (bytes.size() <= kLongest) {
        plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &raw);
    }
    const std::unique_ptr<void, Freer> plist(raw);
    if (plist == nullptr || plist_get_node_type(plist.get()) != PLIST_DICT) {
        throw BadInput(name + ": no property list");
    }
    BundleInfo info{.identifier = TextUnder(plist.get(), "CFBundleIdentifier"),
                    .executable = TextUnder(plist.get(), "CFBundleExecutable")};
    if (info.executable.empty()) {
        throw BadInput(name + ": names no executable");
    }
    return info;
}

} // namespace inspect
