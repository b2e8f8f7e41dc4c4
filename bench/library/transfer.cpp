// Export and import of the configuration against what JSON and zlib take for the same bytes.

#include "settings/transfer.hpp"
#include "apple/foundation/json_serialization.hpp"
#include "apple/uikit/pasteboard.hpp"
#include "configuration.hpp"
#include "measure.hpp"
#include "overlay/panel.hpp"
#include "preferences/own_keys.hpp"

#include <string>
#include <vector>
#include <zlib.h>

namespace bench {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes Packed(const Bytes &plain) {
    uLongf length = compressBound(plain.size());
    Bytes packed(length);
    compress2(packed.data(), &length, plain.data(), plain.size(), Z_BEST_COMPRESSION);
    packed.resize(length);
    return packed;
}

Bytes BytesOf(ns::Data data) {
    Bytes bytes(data.length());
    data.getBytes(bytes.data(), bytes.size());
    return bytes;
}

void Transfer(const std::string &suffix, int columns, int rows, unsigned long units) {
    corvel::RemovePanels(); // an import lays an open grid out
    StoreGrid(columns, rows, units);
    const auto configuration = ns::New<ns::MutableDictionary>();
    const auto store = ns::UserDefaults::standardUserDefaults();
    corvel::VisitOwnKeys(store, [&](ns::String key, ns::Object value) { configuration->setObject(value, key); });
    const objc::Ref<ns::Data> json = ns::JSONSerialization::dataWithJSONObject(configuration.get(), 0, nullptr);
    const Bytes plain = BytesOf(json);
    const Bytes packed = Packed(plain);
    Bytes unpacked(plain.size());

    CountPair(
        "export" + suffix, [] { corvel::HandleExport(nullptr, nullptr); },
        [&] {
            ns::JSONSerialization::dataWithJSONObject(configuration.get(), 0, nullptr);
            Packed(plain);
        });
    CountPair(
        "import" + suffix, [] { corvel::HandleImport(nullptr, nullptr); },
        [&] {
            uLongf length = unpacked.size();
            uncompress(unpacked.data(), &length, packed.data(), packed.size());
            ns::JSONSerialization::JSONObjectWithData(json, 0, nullptr);
        });
    // What comes in is stored, each value under its key, and written to the disk.
    objc::Ref<ns::Dictionary> parsed;
    CountAlso(
        "import" + suffix,
        [&] { parsed = objc::As<ns::Dictionary>(ns::JSONSerialization::JSONObjectWithData(json, 0, nullptr)); },
        [&] {
            for (const ns::String key : ns::ArrayOf<ns::String>(parsed->allKeys())) {
                store.setObject(parsed->objectForKey(key), key);
            }
            store.synchronize();
        });
}

} // namespace
} // namespace bench

CORVEL_BENCH BenchTransfer() {
    bench::Transfer("", 12, 12, 200);
}

CORVEL_BENCH BenchTransferGrowth() {
    for (const int rows : {1, 2, 4, 6, 8, 10, 12}) {
        bench::Transfer("-slots-" + std::to_string(12 * rows), 12, rows, 200);
    }
}
