#pragma once

#include <acutmem.h>

namespace tessaro {

/// Owner of a text that the host allocated for the caller.
class HostString {
 public:
  HostString() = default;
  explicit HostString(ACHAR* made) : made(made) {}
  HostString(const HostString&) = delete;
  HostString& operator=(const HostString&) = delete;
  ~HostString() { free(); }

  /// Frees the text that is held.
  /// @return the place for an operation of the host that allocates a text
  ACHAR*& out() {
    free();
    return made;
  }

  /// @return the text, empty if the host allocated none; valid as long as this owner
  const ACHAR* text() const { return made != nullptr ? made : L""; }

 private:
  void free() {
    if (made == nullptr) return;
    void* buffer = made;
    acutDelBuffer(buffer);
    made = nullptr;
  }

  ACHAR* made = nullptr;
};

}  // namespace tessaro
