#include "driver/api_listing.hpp"

#include "runtime/native_class.hpp"

#include <cstdio>

namespace sim {

void PrintApi() {
    for (const ApiRow &row : ApiRows()) {
        std::printf("%s\t%c\t%s\t%s\n", row.className, row.kind, row.selectorName, row.encoding);
    }
}

} // namespace sim
