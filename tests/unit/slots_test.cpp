// The keys of slots and the numbers of empty ones, also of slots that no grid has.

#include "matrix/slots.hpp"

#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace corvel {
namespace {

TEST(Slots, AnyIndexHasAKeyAndANumber) {
    const test::Pool pool;
    struct Case {
        int index;
        const char *key;
        const char *number;
    };
    constexpr Case kCases[] = {
        {0, "Corvel.slots.0", "1"},
        {143, "Corvel.slots.143", "144"}, // the last of the largest grid
        {144, "Corvel.slots.144", "145"},
        {-1, "Corvel.slots.-1", "0"},
        {-1000, "Corvel.slots.-1000", "-999"}, // of a view without a tag
        {std::numeric_limits<int>::max(), "Corvel.slots.2147483647", "2147483648"},
        {std::numeric_limits<int>::min(), "Corvel.slots.-2147483648", "-2147483647"},
    };
    for (const Case &each : kCases) {
        for (int time = 0; time < 2; ++time) { // made, and found again
            EXPECT_STREQ(SlotKey(each.index).UTF8String(), each.key);
            EXPECT_STREQ(SlotDisplayText(each.index)->UTF8String(), each.number);
        }
    }
}

} // namespace
} // namespace corvel
