#pragma once

#include <objbase.h>

namespace tessaro {

/// A level of COM on this thread for a scope, for work that the host doesn't start as a command.
class ComScope {
 public:
  ComScope() : entered(SUCCEEDED(CoInitialize(nullptr))) {}
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;
  ~ComScope() {
    if (entered) CoUninitialize();
  }

 private:
  const bool entered;
};

}  // namespace tessaro
