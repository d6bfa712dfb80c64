#pragma once

#include <windows.h>

#include "foundation/CString.h"

namespace tessaro {

/// The suite's own key, below HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER.
inline constexpr wchar_t suiteKey[] = L"Software\\Halvern\\Applications\\Quillstone Suite";
/// The suite's policies, below HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER.
inline constexpr wchar_t policyKey[] = L"Software\\Policies\\Halvern\\Quillstone Suite";

/// Owner of an open registry key.
class Registry {
 public:
  Registry() = default;
  Registry(const Registry&) = delete;
  Registry& operator=(const Registry&) = delete;
  virtual ~Registry();

  /// Closes the key that is open and opens another one.
  /// @param subKey the name below `parent`; null or empty for `parent` itself
  /// @param access KEY_...
  /// @param create create the key if it doesn't exist (RegCreateKeyExW); ignored without a name
  /// @return whether the key was opened
  bool open(HKEY parent, const wchar_t* subKey, REGSAM access, bool create = false);
  void close();

  /// @return the open key, null if there is none
  HKEY key() const { return key_; }
  /// @return Windows' result of the latest call
  LONG lastResult() const { return lastResult_; }

  /// Queries a value (RegQueryValueExW).
  /// @param name empty for the key's default value
  /// @param type may be null, as may `data` and `size`
  LONG query(const wchar_t* name, DWORD* type, void* data, DWORD* size);
  /// Sets a value (RegSetValueExW).
  /// @param size in bytes
  LONG set(const wchar_t* name, DWORD type, const void* data, DWORD size);

 private:
  HKEY key_ = nullptr;
  LONG lastResult_ = ERROR_SUCCESS;
};

/// Reads a text value; the variables of a REG_EXPAND_SZ are expanded.
/// @param name empty for the key's default value
/// @param text unchanged on failure
/// @return whether the value is a text
bool readRegistryString(Registry& registry, const wchar_t* name, CString& text);

}  // namespace tessaro
