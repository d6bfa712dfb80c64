#include <windows.h>

#include <map>

#include "core/HandleLedger.h"
#include "core/RegistrySettings.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "watch/WatchedCalls.h"

namespace wb {
namespace {

struct WatchedKeys {
  /// The full names of the open keys, so that a value can be told with its place.
  std::map<HKEY, std::wstring> names;
  HandleLedger<HKEY> open{L"registry key"};
};

WatchedKeys& keys() { return sessionPart<WatchedKeys>(); }

std::wstring nameOf(HKEY key) {
  if (key == HKEY_CURRENT_USER) return L"HKCU";
  if (key == HKEY_LOCAL_MACHINE) return L"HKLM";
  if (key == HKEY_CLASSES_ROOT) return L"HKCR";
  const auto at = keys().names.find(key);
  return at == keys().names.end() ? L"(key)" : at->second;
}

std::wstring nameOf(HKEY parent, const wchar_t* subKey) {
  return nameOf(parent) + (subKey && *subKey ? std::wstring(L"\\") + subKey : std::wstring());
}

std::wstring valueName(HKEY key, const wchar_t* name) {
  return nameOf(key) + L'\\' + (name && *name ? name : L"(default)");
}

std::wstring outcome(LSTATUS result) {
  return result == ERROR_SUCCESS ? std::wstring() : L" -> Windows error " + std::to_wstring(result);
}

void keyOpened(HKEY key, std::wstring name) {
  keys().names[key] = name;
  keys().open.opened(key, std::move(name));
}

LSTATUS WINAPI seenRegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access,
                                 PHKEY result) {
  const LSTATUS status = RegOpenKeyExW(key, subKey, options, access, result);
  if (status == ERROR_SUCCESS && result && *result != key) keyOpened(*result, nameOf(key, subKey));
  return status;
}

LSTATUS WINAPI seenRegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR type,
                                   DWORD options, REGSAM access, LPSECURITY_ATTRIBUTES security,
                                   PHKEY result, LPDWORD disposition) {
  DWORD made = 0;
  const LSTATUS status = RegCreateKeyExW(key, subKey, reserved, type, options, access, security,
                                         result, disposition ? disposition : &made);
  if (disposition) made = *disposition;
  const std::wstring name = nameOf(key, subKey);
  if (status != ERROR_SUCCESS) {
    tell(Event::reg, L"create " + name + outcome(status));
    return status;
  }
  if (made == REG_CREATED_NEW_KEY) tell(Event::reg, L"create " + name);
  if (result && *result != key) keyOpened(*result, name);
  return status;
}

LSTATUS WINAPI seenRegCloseKey(HKEY key) {
  const LSTATUS status = RegCloseKey(key);
  if (status == ERROR_SUCCESS) {
    keys().open.closed(key);
    keys().names.erase(key);
  } else {
    tell(Event::error, L"RegCloseKey of a key that isn't open");
  }
  return status;
}

LSTATUS WINAPI seenRegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type,
                                  const BYTE* data, DWORD size) {
  const LSTATUS status = RegSetValueExW(key, name, reserved, type, data, size);
  tell(Event::reg, L"set " + valueName(key, name) + L'=' + registryDataText(type, data, size) +
                       outcome(status));
  return status;
}

LSTATUS WINAPI seenRegDeleteValueW(HKEY key, LPCWSTR name) {
  const LSTATUS status = RegDeleteValueW(key, name);
  tell(Event::reg, L"delete " + valueName(key, name) + outcome(status));
  return status;
}

LSTATUS WINAPI seenRegDeleteKeyW(HKEY key, LPCWSTR subKey) {
  const LSTATUS status = RegDeleteKeyW(key, subKey);
  tell(Event::reg, L"delete key " + nameOf(key, subKey) + outcome(status));
  return status;
}

}  // namespace

std::vector<WatchedCall> registryCalls() {
  return {
      {"RegOpenKeyExW", observerOf(seenRegOpenKeyExW, RegOpenKeyExW)},
      {"RegCreateKeyExW", observerOf(seenRegCreateKeyExW, RegCreateKeyExW)},
      {"RegCloseKey", observerOf(seenRegCloseKey, RegCloseKey)},
      {"RegSetValueExW", observerOf(seenRegSetValueExW, RegSetValueExW)},
      {"RegDeleteValueW", observerOf(seenRegDeleteValueW, RegDeleteValueW)},
      {"RegDeleteKeyW", observerOf(seenRegDeleteKeyW, RegDeleteKeyW)},
  };
}

void forgetWatchedKeys() {
  keys().open.forget();
  keys().names.clear();
}

}  // namespace wb
