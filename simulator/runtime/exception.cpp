#include "runtime/exception.hpp"

#include "apple/foundation/exception.hpp"

#include <cstdlib>

namespace sim {

void RaiseException(const char *name, const std::string &reason) {
    ns::Exception::exceptionWithName(ns::String::stringWithUTF8String(name),
                                     ns::String::stringWithUTF8String(reason.c_str()))
        .raise();
    std::abort();
}

} // namespace sim
