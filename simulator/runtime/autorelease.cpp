#include "runtime/autorelease.hpp"

namespace sim {
namespace {

struct Pool : objc::Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSAutoreleasePool";
};

} // namespace

AutoreleasePool::AutoreleasePool() : pool_(objc::SendClass<Pool, "new", Pool>().pointer) {}

AutoreleasePool::~AutoreleasePool() noexcept(false) {
    objc::Send<"drain", void>(Pool{pool_});
}

} // namespace sim
