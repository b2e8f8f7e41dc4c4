#pragma once
// The library under test, injected as a tweak loader does it.

#include <string>

namespace sim::driver {

class Library {
  public:
    /// Opens the library, which runs its initialisers.
    /// The error, empty when it went well.
    std::string Inject(const std::string &path);
    /// An exported function; null when there is none of that name or no library.
    void *Function(const std::string &name) const;

  private:
    void *handle_ = nullptr;
};

} // namespace sim::driver
