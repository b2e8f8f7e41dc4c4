#include "runtime/exception.hpp"

#include <cstdlib>

namespace sim {
namespace {

struct Exception : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSException";
};

} // namespace

void RaiseException(const char *name, const std::string &reason) {
    const auto exception = objc::SendClass<Exception, "exceptionWithName:reason:userInfo:", Exception>(
        ns::String::stringWithUTF8String(name), ns::String::stringWithUTF8String(reason.c_str()), ns::Object{});
    objc::Send<"raise", void>(exception);
    std::abort();
}

} // namespace sim
