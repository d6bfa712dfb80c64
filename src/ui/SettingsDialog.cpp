#include "ui/SettingsDialog.h"

#include <windows.h>

#include <algorithm>

#include "foundation/AddinSettings.h"
#include "ui/DialogTexts.h"
#include "ui/FloatWindow.h"
#include "ui/Version.h"
#include "vault/Messages.h"

namespace tessaro {

namespace {

constexpr ControlText texts[] = {
    {IDC_AUTOLOCK, messages::autolockBox},        {IDC_EDIT_WARNING, messages::editWarningBox},
    {IDC_SHOW_STATUS, messages::statusWindowBox}, {IDC_INTERVAL_LABEL, messages::intervalLabel},
    {IDC_MINUTES, messages::minutesLabel},
};

CString versionLine() {
  CString version = textOf(_bstr_t(moduleVersion));
  std::replace(version.begin(), version.end(), L',', L'.');
  return textOf(loadMessage(messages::addinVersion)) + version;
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
  SetWindowTextW(window, loadMessage(messages::settingsTitle));
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
  dialog.interval = addinSettingOrDefault(addinSettings::xrefMonitoringInterval);
  dialog.autolock = addinSettingOrDefault(addinSettings::autolock) != 0;
  dialog.statusWnd = addinSettingOrDefault(addinSettings::statusWindow) != 0;
  dialog.editWarning = addinSettingOrDefault(addinSettings::editWarning) != 0;
  if (dialog.doModal(app.mainWindow) != IDOK) return;
  writeAddinSetting(addinSettings::xrefMonitoringInterval, dialog.interval);
  writeAddinSetting(addinSettings::statusWindow, dialog.statusWnd);
  writeAddinSetting(addinSettings::autolock, dialog.autolock);
  writeAddinSetting(addinSettings::editWarning, dialog.editWarning);
  if (statusWindow) statusWindow->Configure(dialog.statusWnd, dialog.interval);
}

}  // namespace tessaro
