#include "foundation/AppMessageBox.h"

#include "foundation/AppContext.h"
#include "foundation/Registry.h"

namespace {

/// @return empty if there is no usable title
CString titleIn(HKEY root) {
  Registry suite;
  if (!suite.open(root, suiteKey, KEY_READ)) {
    return {};
  }
  constexpr DWORD titleBytes = 1024;
  // One character more than is read: nothing makes whoever wrote the value end it with a null.
  wchar_t title[titleBytes / sizeof(wchar_t) + 1] = {};
  DWORD type = REG_NONE;
  DWORD size = titleBytes;
  const LONG result =
      RegQueryValueExW(suite.key(), L"", nullptr, &type, reinterpret_cast<BYTE*>(title), &size);
  return result == ERROR_SUCCESS && type == REG_SZ ? title : CString();
}

}  // namespace

int appMessageBox(const wchar_t* text, UINT flags) {
  const AppContext* app = currentApp();
  if (app == nullptr) {
    return MessageBoxW(nullptr, text, L"", flags);
  }
  return MessageBoxW(app->mainWindow, text, productTitle(L"Tessaro").c_str(), flags);
}

CString productTitle(const wchar_t* fallback) {
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    CString title = titleIn(root);
    if (!title.empty()) {
      return title;
    }
  }
  return fallback;
}
