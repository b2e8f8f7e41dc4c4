// The check of apps: any file is judged or refused with one line, and every text that is printed is one.

#include "inspect/bad_input.hpp"
#include "inspect/report.hpp"

#include <nlohmann/json.hpp>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    try {
        const inspect::App app =
            inspect::OpenAppFile("input", std::string(reinterpret_cast<const char *>(bytes), size));
        const inspect::Report report = inspect::MakeReport(app);
        static_cast<void>(inspect::AsText(report));
        static_cast<void>(inspect::AsJson(report).dump());
    } catch (const inspect::BadInput &bad) {
        if (std::string_view(bad.what()).find('\n') != std::string_view::npos) {
            std::abort();
        }
    }
    return 0;
}
