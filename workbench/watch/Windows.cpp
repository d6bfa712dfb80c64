#include <windows.h>

#include <objbase.h>

#include <map>
#include <utility>

#include "core/HandleLedger.h"
#include "core/SessionState.h"
#include "dialogs/Answers.h"
#include "dialogs/Reader.h"
#include "watch/ImportWatch.h"
#include "watch/WatchedCalls.h"

namespace wb {
namespace {

using TimerKey = std::pair<HWND, UINT_PTR>;

struct WatchedWindows {
  HandleLedger<TimerKey> timers{L"timer"};
  std::map<TimerKey, UINT> periods;
  HandleLedger<HWND> dialogs{L"window"};
  int apartments = 0;
};

WatchedWindows& watched() { return sessionPart<WatchedWindows>(); }

int WINAPI seenMessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT flags) {
  if (windowsFails(L"module.MessageBoxW")) return 0;
  return watchedMessageBox(owner, text, title, flags);
}

UINT_PTR WINAPI seenSetTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure) {
  if (windowsFails(L"module.SetTimer")) return 0;
  const UINT_PTR timer = SetTimer(window, id, period, procedure);
  const DWORD error = GetLastError();
  // A timer that is set again in a command was there before it, and goes on after it.
  if (timer) {
    const TimerKey key{window, window ? id : timer};
    watched().timers.opened(key, std::to_wstring(period) + L" ms", true);
    watched().periods[key] = period;
  }
  SetLastError(error);
  return timer;
}

BOOL WINAPI seenKillTimer(HWND window, UINT_PTR id) {
  const BOOL killed = KillTimer(window, id);
  const DWORD error = GetLastError();
  if (killed) {
    watched().timers.closed({window, id});
    watched().periods.erase({window, id});
  }
  SetLastError(error);
  return killed;
}

HWND WINAPI seenCreateDialogParamW(HINSTANCE instance, LPCWSTR name, HWND owner, DLGPROC procedure,
                                   LPARAM argument) {
  if (windowsFails(L"module.CreateDialogParamW")) return nullptr;
  const HWND dialog = CreateDialogParamW(instance, name, owner, procedure, argument);
  const DWORD error = GetLastError();
  if (dialog) {
    Answers::instance().noteModeless(dialog);
    watched().dialogs.opened(dialog, windowTitle(dialog), true);
  }
  SetLastError(error);
  return dialog;
}

INT_PTR WINAPI seenDialogBoxParamW(HINSTANCE instance, LPCWSTR name, HWND owner, DLGPROC procedure,
                                   LPARAM argument) {
  if (windowsFails(L"module.DialogBoxParamW")) return -1;
  return DialogBoxParamW(instance, name, owner, procedure, argument);
}

BOOL WINAPI seenDestroyWindow(HWND window) {
  const BOOL destroyed = DestroyWindow(window);
  const DWORD error = GetLastError();
  if (destroyed) {
    watched().dialogs.closed(window);
    watched().timers.closedWhere([&](const TimerKey& timer) { return timer.first == window; });
  }
  SetLastError(error);
  return destroyed;
}

HRESULT WINAPI seenCoInitialize(LPVOID reserved) {
  const HRESULT result = CoInitialize(reserved);
  if (SUCCEEDED(result)) ++watched().apartments;
  return result;
}

HRESULT WINAPI seenCoInitializeEx(LPVOID reserved, DWORD model) {
  const HRESULT result = CoInitializeEx(reserved, model);
  if (SUCCEEDED(result)) ++watched().apartments;
  return result;
}

void WINAPI seenCoUninitialize() {
  --watched().apartments;
  CoUninitialize();
}

}  // namespace

std::vector<WatchedCall> windowCalls() {
  return {
      {"MessageBoxW", observerOf(seenMessageBoxW, MessageBoxW)},
      {"SetTimer", observerOf(seenSetTimer, SetTimer)},
      {"KillTimer", observerOf(seenKillTimer, KillTimer)},
      {"CreateDialogParamW", observerOf(seenCreateDialogParamW, CreateDialogParamW)},
      {"DialogBoxParamW", observerOf(seenDialogBoxParamW, DialogBoxParamW)},
      {"DestroyWindow", observerOf(seenDestroyWindow, DestroyWindow)},
      {"CoInitialize", observerOf(seenCoInitialize, CoInitialize)},
      {"CoInitializeEx", observerOf(seenCoInitializeEx, CoInitializeEx)},
      {"CoUninitialize", observerOf(seenCoUninitialize, CoUninitialize)},
  };
}

void forgetWatchedWindows() {
  watched().timers.forget();
  watched().dialogs.forget();
  watched().periods.clear();
}

std::optional<UINT> watchedTimer(HWND window, UINT_PTR id) {
  const auto at = watched().periods.find({window, id});
  return at == watched().periods.end() || !IsWindow(window) ? std::nullopt
                                                            : std::optional(at->second);
}

int apartmentBalance() { return watched().apartments; }

}  // namespace wb
