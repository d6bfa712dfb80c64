#include "scripting/ClientLibrary.h"

#include <cstdio>
#include <stdexcept>

#include "core/Text.h"

namespace wb {

ClientLibrary::ClientLibrary(const std::wstring& file) {
  if (file.empty()) return;
  library = LoadLibraryW(file.c_str());
  // It stays: a process has many sessions, one after the other.
  if (library && GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, file.c_str(), &library)) return;
  throw std::runtime_error("the client " + toUtf8(file) + " can't be loaded, Windows error " +
                           std::to_string(GetLastError()));
}

bool ClientLibrary::isThere() const { return library != nullptr; }

void ClientLibrary::enter() { call("DllRegisterServer"); }

void ClientLibrary::remove() { call("DllUnregisterServer"); }

void ClientLibrary::call(const char* function) {
  if (!library) throw std::runtime_error("the session has no client");
  using Register = HRESULT(STDAPICALLTYPE*)();
  const auto address =
      reinterpret_cast<Register>(reinterpret_cast<void*>(GetProcAddress(library, function)));
  if (!address) throw std::runtime_error(std::string("the client has no ") + function);
  const HRESULT result = address();
  if (SUCCEEDED(result)) return;
  char code[16];
  std::snprintf(code, sizeof(code), "0x%08lX", static_cast<unsigned long>(result));
  throw std::runtime_error(std::string("the client's ") + function + " failed with " + code);
}

}  // namespace wb
