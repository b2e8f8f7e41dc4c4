#include "runtime/failures.hpp"

#include <bitset>
#include <iterator>

namespace sim {
namespace {

constexpr FailureRow kFailures[] = {
    {Failure::kAlbum, "album"},
    {Failure::kDefaults, "defaults"},
    {Failure::kMemory, "memory"},
    {Failure::kPasteboard, "pasteboard"},
};

std::bitset<std::size(kFailures)> failing;

} // namespace

std::span<const FailureRow> Failures() {
    return kFailures;
}

void SetFailing(Failure failure, bool fails) {
    failing.set(static_cast<std::size_t>(failure), fails);
}

bool Fails(Failure failure) {
    return failing.test(static_cast<std::size_t>(failure));
}

} // namespace sim
