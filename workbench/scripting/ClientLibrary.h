#pragma once

#include <windows.h>

#include <string>

namespace wb {

/// The stand-in client's library, as an installation would register it. Once loaded it stays.
class ClientLibrary {
 public:
  /// Without a file there is no client. Raises std::runtime_error if the file is no library.
  explicit ClientLibrary(const std::wstring& file);
  ClientLibrary(const ClientLibrary&) = delete;
  ClientLibrary& operator=(const ClientLibrary&) = delete;

  bool isThere() const;
  /// Both raise std::runtime_error if the library hasn't got the function or it fails.
  void enter();
  void remove();

 private:
  void call(const char* function);

  HMODULE library = nullptr;
};

}  // namespace wb
