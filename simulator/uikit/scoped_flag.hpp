#pragma once
// A flag that is up for the extent of a scope.

#include <utility>

namespace sim {

/// Raises a flag and sets it back at the end of the scope, also when an exception leaves it.
class ScopedFlag {
  public:
    explicit ScopedFlag(bool &flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ScopedFlag(const ScopedFlag &) = delete;
    ScopedFlag &operator=(const ScopedFlag &) = delete;
    ~ScopedFlag() {
        flag_ = before_;
    }

  private:
    bool &flag_;
    bool before_;
};

} // namespace sim
