#include "foundation/SimpleDialog.h"

#include <algorithm>

#include "foundation/AppContext.h"
#include "foundation/Border.h"

namespace tessaro {

INT_PTR SimpleDialog::doModal(HWND owner) {
  failure = S_OK;
  const AppContext* app = currentApp();
  const INT_PTR result =
      DialogBoxParamW(app != nullptr ? app->moduleInstance : nullptr, MAKEINTRESOURCEW(templateId),
                      owner, procedure, reinterpret_cast<LPARAM>(this));
  const DWORD windowsError = result == -1 ? GetLastError() : ERROR_SUCCESS;
  if (SUCCEEDED(failure) && result == -1) {
    failure = windowsError != ERROR_SUCCESS ? HRESULT_FROM_WIN32(windowsError) : E_FAIL;
  }
  if (FAILED(failure)) _com_issue_error(failure);
  return result;
}

bool SimpleDialog::onCommand(WORD, WORD) { return false; }

bool SimpleDialog::onNotify(const NMHDR&) { return false; }

INT_PTR CALLBACK SimpleDialog::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    auto* created = reinterpret_cast<SimpleDialog*>(lParam);
    created->window = window;
    SetWindowLongPtrW(window, DWLP_USER, lParam);
  }
  auto* dialog = reinterpret_cast<SimpleDialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (dialog == nullptr) return FALSE;
  try {
    return dialog->handle(message, wParam, lParam);
  } catch (...) {
    // The first failure is the cause of later ones.
    if (SUCCEEDED(dialog->failure)) dialog->failure = currentFailure();
    EndDialog(window, IDCANCEL);
    return TRUE;
  }
}

bool SimpleDialog::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      if (centre) centreOnOwner();
      onInit();
      return true;
    case WM_COMMAND:
      return onCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY:
      return onNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_NCDESTROY:
      SetWindowLongPtrW(window, DWLP_USER, 0);
      window = nullptr;
      return false;
    default:
      return false;
  }
}

void SimpleDialog::centreOnOwner() {
  HWND owner = GetWindow(window, GW_OWNER);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  if (!GetMonitorInfoW(
          MonitorFromWindow(owner != nullptr ? owner : window, MONITOR_DEFAULTTONEAREST),
          &monitor)) {
    return;
  }
  // Without a visible owner the dialog is centred on the monitor's work area.
  RECT around = monitor.rcWork;
  if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
  RECT own = {};
  GetWindowRect(window, &own);
  const LONG width = own.right - own.left;
  const LONG height = own.bottom - own.top;
  const RECT& work = monitor.rcWork;
  const LONG left = (around.left + around.right - width) / 2;
  const LONG top = (around.top + around.bottom - height) / 2;
  SetWindowPos(window, nullptr, std::max(work.left, std::min(left, work.right - width)),
               std::max(work.top, std::min(top, work.bottom - height)), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace tessaro
