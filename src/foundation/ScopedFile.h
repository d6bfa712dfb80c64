#pragma once

#include <windows.h>

namespace tessaro {

/// Owner of an open file.
class ScopedFile {
 public:
  /// @param handle the result of CreateFileW; INVALID_HANDLE_VALUE for none
  explicit ScopedFile(HANDLE handle) : handle(handle) {}
  ScopedFile(const ScopedFile&) = delete;
  ScopedFile& operator=(const ScopedFile&) = delete;
  ~ScopedFile() {
    if (*this) CloseHandle(handle);
  }

  HANDLE get() const { return handle; }
  explicit operator bool() const { return handle != INVALID_HANDLE_VALUE; }

 private:
  const HANDLE handle;
};

}  // namespace tessaro
