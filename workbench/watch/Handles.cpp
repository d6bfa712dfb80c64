#include <windows.h>

#include <objbase.h>

#include <map>
#include <utility>

#include "core/Accounts.h"
#include "core/RegistrySettings.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "dialogs/Answers.h"
#include "dialogs/Reader.h"
#include "watch/WatchedCalls.h"

namespace wb {
namespace {

using TimerKey = std::pair<HWND, UINT_PTR>;

/// What watched modules have open.
struct WatchedHandles {
  HandleLedger<HKEY> keys{L"registry key"};
  std::map<HKEY, std::wstring> keyNames;  ///< in full
  HandleLedger<HANDLE> files{L"file"};
  HandleLedger<HANDLE> images{L"image"};
  HandleLedger<HMENU> menus{L"menu"};
  HandleLedger<HWND> dialogs{L"window"};
  HandleLedger<TimerKey> timers{L"timer"};
  std::map<TimerKey, UINT> periods;
  int apartments = 0;
};

WatchedHandles& watched() { return sessionPart<WatchedHandles>(); }

std::wstring nameOf(HKEY key) {
  if (key == HKEY_CURRENT_USER) return L"HKCU";
  if (key == HKEY_LOCAL_MACHINE) return L"HKLM";
  if (key == HKEY_CLASSES_ROOT) return L"HKCR";
  const auto at = watched().keyNames.find(key);
  return at == watched().keyNames.end() ? L"(key)" : at->second;
}

std::wstring nameOf(HKEY parent, const wchar_t* subKey) {
  return nameOf(parent) + (subKey && *subKey ? std::wstring(L"\\") + subKey : std::wstring());
}

void reportWrite(LSTATUS status, std::wstring what) {
  if (status != ERROR_SUCCESS) what += L" -> Windows error " + std::to_wstring(status);
  report(Event::reg, what);
}

std::wstring valueName(HKEY key, const wchar_t* name) {
  return nameOf(key) + L'\\' + (name && *name ? name : L"(default)");
}

void keyOpened(HKEY key, const std::wstring& name) {
  watched().keyNames[key] = name;
  watched().keys.opened(key, name);
}

LSTATUS WINAPI seenRegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR type,
                                   DWORD options, REGSAM access, LPSECURITY_ATTRIBUTES security,
                                   PHKEY result, LPDWORD disposition) {
  DWORD made = 0;
  const LSTATUS status = RegCreateKeyExW(key, subKey, reserved, type, options, access, security,
                                         result, disposition ? disposition : &made);
  if (disposition) made = *disposition;
  const std::wstring name = nameOf(key, subKey);
  if (status != ERROR_SUCCESS || made == REG_CREATED_NEW_KEY) {
    reportWrite(status, L"create " + name);
  }
  if (status == ERROR_SUCCESS && result && *result != key) keyOpened(*result, name);
  return status;
}

void require(bool succeeded, const wchar_t* otherwise) {
  if (!succeeded) report(Event::error, otherwise);
}

std::vector<WatchedCall> registryCalls() {
  return {
      observed("RegOpenKeyExW", RegOpenKeyExW,
               [](LSTATUS status, HKEY key, LPCWSTR subKey, DWORD, REGSAM, PHKEY result) {
                 if (status == ERROR_SUCCESS && result && *result != key) {
                   keyOpened(*result, nameOf(key, subKey));
                 }
               }),
      {"RegCreateKeyExW", observerOf(seenRegCreateKeyExW, RegCreateKeyExW)},
      observed("RegCloseKey", RegCloseKey,
               [](LSTATUS status, HKEY key) {
                 require(status == ERROR_SUCCESS, L"RegCloseKey of a key that isn't open");
                 if (status != ERROR_SUCCESS) return;
                 watched().keys.closed(key);
                 watched().keyNames.erase(key);
               }),
      observed("RegSetValueExW", RegSetValueExW,
               [](LSTATUS status, HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data,
                  DWORD size) {
                 reportWrite(status, L"set " + valueName(key, name) + L'=' +
                                         registryDataText(type, data, size));
               }),
      observed("RegDeleteValueW", RegDeleteValueW,
               [](LSTATUS status, HKEY key, LPCWSTR name) {
                 reportWrite(status, L"delete " + valueName(key, name));
               }),
      observed("RegDeleteKeyW", RegDeleteKeyW,
               [](LSTATUS status, HKEY key, LPCWSTR subKey) {
                 reportWrite(status, L"delete key " + nameOf(key, subKey));
               }),
  };
}

std::wstring resourceName(LPCWSTR name) {
  if (!IS_INTRESOURCE(name)) return name;
  return L"resource " + std::to_wstring(reinterpret_cast<ULONG_PTR>(name));
}

/// DestroyMenu destroys the submenus as well.
void collectMenus(HMENU menu, std::vector<HMENU>& all) {
  all.push_back(menu);
  for (int item = 0; item < GetMenuItemCount(menu); ++item) {
    if (const HMENU below = GetSubMenu(menu, item)) collectMenus(below, all);
  }
}

BOOL WINAPI seenDestroyMenu(HMENU menu) {
  std::vector<HMENU> all;
  collectMenus(menu, all);
  const BOOL destroyed = DestroyMenu(menu);
  const DWORD error = GetLastError();
  require(destroyed, L"DestroyMenu of a menu that is gone");
  for (const HMENU gone : all) {
    if (destroyed) watched().menus.closed(gone);
  }
  SetLastError(error);
  return destroyed;
}

std::vector<WatchedCall> resourceCalls() {
  return {
      observed("CreateFileW", CreateFileW,
               [](HANDLE file, LPCWSTR name, auto...) {
                 if (file != INVALID_HANDLE_VALUE) watched().files.opened(file, name ? name : L"");
               }),
      observed("CloseHandle", CloseHandle,
               [](BOOL closed, HANDLE handle) {
                 require(closed, L"CloseHandle of a handle that isn't open");
                 if (closed) watched().files.closed(handle);
               }),
      failing("LoadImageW", LoadImageW, nullptr,
              [](HANDLE image, HINSTANCE, LPCWSTR name, UINT, int, int, UINT flags) {
                // Shared images belong to Windows.
                if (image && !(flags & LR_SHARED)) {
                  watched().images.opened(image, resourceName(name));
                }
              }),
      observed("DeleteObject", DeleteObject,
               [](BOOL deleted, HGDIOBJ object) {
                 require(deleted, L"DeleteObject of an object that is gone");
                 if (deleted) watched().images.closed(object);
               }),
      failing("AppendMenuW", AppendMenuW, FALSE, [](auto...) {}),
      failing("CreatePopupMenu", CreatePopupMenu, nullptr,
              [](HMENU menu) {
                // A menu is kept for the next time that it is shown.
                if (menu) watched().menus.opened(menu, L"popup", true);
              }),
      {"DestroyMenu", observerOf(seenDestroyMenu, DestroyMenu)},
  };
}

int WINAPI seenMessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT flags) {
  if (windowsFails(L"module.MessageBoxW")) return 0;
  return watchedMessageBox(owner, text, title, flags);
}

void WINAPI seenCoUninitialize() {
  --watched().apartments;
  CoUninitialize();
}

std::vector<WatchedCall> windowCalls() {
  const auto countApartment = [](HRESULT result, auto...) {
    watched().apartments += SUCCEEDED(result) ? 1 : 0;
  };
  return {
      {"MessageBoxW", observerOf(seenMessageBoxW, MessageBoxW)},
      failing("SetTimer", SetTimer, 0,
              [](UINT_PTR timer, HWND window, UINT_PTR id, UINT period, TIMERPROC) {
                if (!timer) return;
                // A timer that is set again in a command was there before it and stays after it.
                const TimerKey key{window, window ? id : timer};
                watched().timers.opened(key, std::to_wstring(period) + L" ms", true);
                watched().periods[key] = period;
              }),
      observed("KillTimer", KillTimer,
               [](BOOL killed, HWND window, UINT_PTR id) {
                 if (!killed) return;
                 watched().timers.closed({window, id});
                 watched().periods.erase({window, id});
               }),
      failing("CreateDialogParamW", CreateDialogParamW, nullptr,
              [](HWND dialog, auto...) {
                if (!dialog) return;
                Answers::instance().leaveAlone(dialog);
                watched().dialogs.opened(dialog, windowTitle(dialog), true);
              }),
      failing("DialogBoxParamW", DialogBoxParamW, -1, [](auto...) {}),
      observed("DestroyWindow", DestroyWindow,
               [](BOOL destroyed, HWND window) {
                 if (!destroyed) return;
                 watched().dialogs.closed(window);
                 for (const TimerKey& timer : watched().timers.handles()) {
                   if (timer.first == window) watched().timers.closed(timer);
                 }
               }),
      observed("CoInitialize", CoInitialize, countApartment),
      observed("CoInitializeEx", CoInitializeEx, countApartment),
      {"CoUninitialize", observerOf(seenCoUninitialize, CoUninitialize)},
  };
}

}  // namespace

std::vector<WatchedCall> handleCalls() {
  std::vector<WatchedCall> all;
  for (const auto& calls : {registryCalls(), resourceCalls(), windowCalls()}) {
    all.insert(all.end(), calls.begin(), calls.end());
  }
  return all;
}

void forgetHandles() {
  const int apartments = apartmentBalance();
  watched() = {};
  watched().apartments = apartments;
}

std::optional<UINT> watchedTimer(HWND window, UINT_PTR id) {
  const auto at = watched().periods.find({window, id});
  return at == watched().periods.end() || !IsWindow(window) ? std::nullopt
                                                            : std::optional(at->second);
}

int apartmentBalance() { return watched().apartments; }

}  // namespace wb
