#include "ui/SettingsDialog.h"

#include <windows.h>

#include <algorithm>

#include "foundation/Registry.h"
#include "ui/DialogTexts.h"
#include "ui/FloatWindow.h"
#include "ui/Version.h"
#include "vault/MessageStrings.h"

namespace tessaro {

namespace {

constexpr ControlText texts[] = {
    {IDC_AUTOLOCK, 221,
     "Prompt to check out drawings that are opened in AutoCAD and not already checked out"},
    {IDC_EDIT_WARNING, 225, "Display a warning when trying to edit a checked in drawing"},
    {IDC_SHOW_STATUS, 222, "Show the Tessaro status window"},
    {IDC_INTERVAL_LABEL, 223, "Time between checks that all xrefs are up-to-date:"},
    {IDC_MINUTES, 224, "minutes"},
};

DWORD settingOr(const wchar_t* name, DWORD fallback) {
  DWORD value = 0;
  return readAddinSetting(name, value) ? value : fallback;
}

CString versionLine() {
  CString version = textOf(_bstr_t(moduleVersion));
  std::replace(version.begin(), version.end(), L',', L'.');
  return textOf(loadMessage(226, "Add-in version : ")) + version;
}

}  // namespace

void SettingsDialog::onInit() {
  setTexts();
  SetDlgItemTextW(window, IDC_ADDIN_VERSION, versionLine().c_str());
  CheckDlgButton(window, IDC_AUTOLOCK, autolock);
  CheckDlgButton(window, IDC_EDIT_WARNING, editWarning);
  CheckDlgButton(window, IDC_SHOW_STATUS, statusWnd);
  SetDlgItemInt(window, IDC_INTERVAL, interval, FALSE);
}

void SettingsDialog::setTexts() {
  SetWindowTextW(window, loadMessage(220, "Tessaro add-in settings"));
  setControlTexts(window, texts);
  setButtonTexts(window);
}

bool SettingsDialog::onCommand(WORD id, WORD) {
  if (!closesDialog(id)) return false;
  takeValues();
  end(id);
  return true;
}

void SettingsDialog::takeValues() {
  autolock = IsDlgButtonChecked(window, IDC_AUTOLOCK) == BST_CHECKED;
  editWarning = IsDlgButtonChecked(window, IDC_EDIT_WARNING) == BST_CHECKED;
  statusWnd = IsDlgButtonChecked(window, IDC_SHOW_STATUS) == BST_CHECKED;
  interval = GetDlgItemInt(window, IDC_INTERVAL, nullptr, FALSE);
}

void settings(AppContext& app, FloatWindow* statusWindow) {
  SettingsDialog dialog;
  dialog.interval = settingOr(L"XrefMonitoringInterval", 5);
  dialog.autolock = settingOr(L"Autolock", 0) != 0;
  dialog.statusWnd = settingOr(L"StatusWnd", 1) != 0;
  dialog.editWarning = settingOr(L"EditWarning", 1) != 0;
  if (dialog.doModal(app.mainWindow) != IDOK) return;
  writeAddinSetting(L"XrefMonitoringInterval", dialog.interval);
  writeAddinSetting(L"StatusWnd", dialog.statusWnd);
  writeAddinSetting(L"Autolock", dialog.autolock);
  writeAddinSetting(L"EditWarning", dialog.editWarning);
  if (statusWindow) statusWindow->Configure(dialog.statusWnd, dialog.interval);
}

}  // namespace tessaro
