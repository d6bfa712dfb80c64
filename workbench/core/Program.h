#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace wb {

/// The program that runs; the module, the client and the other programs lie beside it.
inline std::filesystem::path programFile() {
  wchar_t file[MAX_PATH];
  GetModuleFileNameW(nullptr, file, MAX_PATH);
  return file;
}

inline std::filesystem::path programFolder() { return programFile().parent_path(); }

/// Starts a program with the caller's inheritable handles.
/// @param arguments what comes behind the program's name.
/// @return false with the Windows error in GetLastError(). On a busy machine Wine now and then
/// can't start a process, so that it is tried again.
inline bool startProgram(const std::filesystem::path& program, const std::wstring& arguments,
                         STARTUPINFOW& startup, PROCESS_INFORMATION& process) {
  for (unsigned attempt = 1;; ++attempt) {
    std::wstring line = L"\"" + program.wstring() + L"\" " + arguments;
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &startup, &process)) {
      return true;
    }
    if (attempt == 3 || GetLastError() != ERROR_INTERNAL_ERROR) return false;
  }
}

/// A function that a library exports, null if it doesn't.
template <class Function>
Function exportedFunction(HMODULE library, const char* name) {
  const auto address = reinterpret_cast<void*>(GetProcAddress(library, name));
  return reinterpret_cast<Function>(address);
}

/// True if `address` lies in the image of `module`.
inline bool isInModule(HMODULE module, const void* address) {
  HMODULE owner = nullptr;
  return address &&
         GetModuleHandleExW(
             GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
             static_cast<const wchar_t*>(address), &owner) &&
         owner == module;
}

/// True if the object's class is implemented in `module`: its table of virtual functions is there.
template <class Object>
bool isOfModule(HMODULE module, const Object* object) {
  return object && isInModule(module, *reinterpret_cast<const void* const*>(object));
}

}  // namespace wb
