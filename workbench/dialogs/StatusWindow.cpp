#include "dialogs/StatusWindow.h"

#include "dialogs/Reader.h"
#include "ui/resource.h"

namespace wb {

namespace {

BOOL CALLBACK matchStatusWindow(HWND window, LPARAM argument) {
  if (!isDialogWindow(window)) return TRUE;
  for (const int id : {IDC_XREFS_LATEST, IDC_CHECKED_OUT_HERE, IDC_VERSION, IDC_REFRESH}) {
    if (!GetDlgItem(window, id)) return TRUE;
  }
  *reinterpret_cast<HWND*>(argument) = window;
  return FALSE;
}

}  // namespace

HWND findStatusWindow() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), matchStatusWindow, reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace wb
