#include "foundation/AppMessageBox.h"

#include "foundation/AppContext.h"
#include "foundation/Registry.h"

namespace tessaro {

namespace {

/// @return the title in the suite's key below `root`, empty if there is no usable one
CString titleIn(HKEY root) {
  Registry suite;
  if (!suite.open(root, suiteKey, KEY_READ)) return {};
  constexpr DWORD titleBytes = 1024;
  // One character more than is read: the stored value need not end with a null.
  wchar_t title[titleBytes / sizeof(wchar_t) + 1] = {};
  DWORD type = REG_NONE;
  DWORD size = titleBytes;
  const LONG result = suite.query(L"", &type, title, &size);
  return result == ERROR_SUCCESS && type == REG_SZ ? title : CString();
}

}  // namespace

int appMessageBox(const wchar_t* text, UINT flags) noexcept {
  const AppContext* app = currentApp();
  if (app == nullptr) return MessageBoxW(nullptr, text, L"", flags);
  const wchar_t* shown = L"Tessaro";
  CString title;
  try {
    title = productTitle(shown);
    shown = title.c_str();
  } catch (...) {
    // A box that reports a failure has to appear, under the short title if need be.
  }
  return MessageBoxW(app->mainWindow, text, shown, flags);
}

bool askYesNo(const wchar_t* question) {
  return appMessageBox(question, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

CString productTitle(const wchar_t* fallback) {
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    CString title = titleIn(root);
    if (!title.empty()) return title;
  }
  return fallback;
}

}  // namespace tessaro
