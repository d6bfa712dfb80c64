#pragma once

#include <windows.h>

#include "foundation/CString.h"

namespace tessaro {

/// The suite's own key, below HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER.
inline constexpr wchar_t suiteKey[] = L"Software\\Halvern\\Applications\\Quillstone Suite";
/// The add-in's settings, below HKEY_CURRENT_USER.
inline constexpr wchar_t addinSettingsKey[] =
    L"Software\\Halvern\\Applications\\Quillstone Suite\\TessaroACAD";
/// The suite's policies, below HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER.
inline constexpr wchar_t policyKey[] = L"Software\\Policies\\Halvern\\Quillstone Suite";

/// Owner of an open registry key.
class Registry {
 public:
  Registry() = default;
  Registry(const Registry&) = delete;
  Registry& operator=(const Registry&) = delete;
  virtual ~Registry();

  /// Opens a key in place of the one that is open.
  /// @param subKey the name below `parent`; null or empty for `parent` itself
  /// @param access KEY_...
  /// @param create make the key if it isn't there (RegCreateKeyExW); needs a name
  bool open(HKEY parent, const wchar_t* subKey, REGSAM access, bool create = false);
  void close();

  /// The open key, null if there is none.
  HKEY key() const { return key_; }
  /// Windows' result of the latest call: opening, closing, reading or writing.
  LONG lastResult() const { return lastResult_; }

  /// RegQueryValueExW of a value, empty for the key's default value; any of the others may be null.
  LONG query(const wchar_t* name, DWORD* type, void* data, DWORD* size);
  /// RegSetValueExW.
  LONG set(const wchar_t* name, DWORD type, const void* data, DWORD size);

 private:
  HKEY key_ = nullptr;
  LONG lastResult_ = ERROR_SUCCESS;
};

/// Reads a text, a REG_EXPAND_SZ with its variables filled in. `text` stays as it is if there is
/// none.
/// @param name empty for the key's default value
bool readRegistryString(Registry& registry, const wchar_t* name, CString& text);

/// Reads a setting of at most four bytes, of whatever type; bytes that the value doesn't have stay
/// as they are in `data`, as does all of it if nothing could be read.
bool readSetting(Registry& registry, const wchar_t* name, DWORD& data);

/// The same for a setting of the add-in, whose key is opened for it.
bool readAddinSetting(const wchar_t* name, DWORD& data);

/// Writes a setting of the add-in as REG_DWORD, with its key if that isn't there.
bool writeAddinSetting(const wchar_t* name, DWORD data);

}  // namespace tessaro
