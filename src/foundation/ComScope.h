#pragma once

#include <objbase.h>

namespace tessaro {

/// Initializes COM on this thread for a scope, for work outside the host's commands.
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
