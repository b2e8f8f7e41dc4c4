#include "runtime/wall_clock.hpp"

#include "apple/foundation/date.hpp"
#include "runtime/clock.hpp"
#include "runtime/replace_method.hpp"

namespace sim {
namespace {

constexpr double kLaunch = 680002860; // 2022-07-20 09:41:00 UTC, in seconds since Foundation's reference date

double TimeIntervalSinceReferenceDate(objc::Class, objc::SEL) {
    return kLaunch + clock::Now();
}

ns::Date Date(objc::Class, objc::SEL) {
    return ns::Date::dateWithTimeIntervalSinceReferenceDate(kLaunch + clock::Now());
}

} // namespace

void InstallWallClock() {
    ReplaceClassMethod("NSDate", objc::Selector<"date">(), &Date);
    ReplaceClassMethod("NSDate", objc::Selector<"timeIntervalSinceReferenceDate">(), &TimeIntervalSinceReferenceDate);
}

} // namespace sim
