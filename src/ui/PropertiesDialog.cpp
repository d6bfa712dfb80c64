#include "ui/PropertiesDialog.h"

#include <windows.h>

#include <acdocman.h>

#include "foundation/FormatText.h"
#include "ui/DialogTexts.h"
#include "vault/FileStatus.h"
#include "vault/Messages.h"
#include "vault/RequireCurrentDrawing.h"
#include "xref/XrefInfo.h"
#include "xref/XrefPaths.h"

namespace tessaro {

namespace {

constexpr ControlText labels[] = {
    {IDC_LOCATION_LABEL, messages::locationLabel},
    {IDC_LOCAL_VERSION_LABEL, messages::localVersionLabel},
    {IDC_LATEST_VERSION_LABEL, messages::latestVersionLabel},
    {IDC_CHECKED_OUT_BY_LABEL, messages::checkedOutByLabel},
    {IDC_CHECKED_OUT_IN_LABEL, messages::checkedOutInLabel},
    {IDC_WORKFLOW_STATE_LABEL, messages::workflowStateLabel},
};

/// @return false if there is no file to show; the reason was reported
bool fileToShow(CString& path) {
  XrefInfo xref;
  if (selectXref(xref, true)) {
    path = xref.path;
    return makeAbsolute(path);
  }
  const CurrentDrawing drawing = requireCurrentDrawing();
  if (!drawing) return false;
  path = textOf(drawing.document->fileName());
  return true;
}

bool readProperties(AppContext& app, const CString& path, FileProperties& properties) {
  bool checkedOut = false;
  CString holderComputer, holderPath;
  FileStatus wanted;
  wanted.fileName = &properties.fileName;
  wanted.stateName = &properties.workflowState;
  wanted.localVersion = &properties.localVersion;
  wanted.latestVersion = &properties.latestVersion;
  wanted.isCheckedOut = &checkedOut;
  wanted.holderName = &properties.checkedOutBy;
  wanted.holderComputer = &holderComputer;
  wanted.holderPath = &holderPath;
  if (!readFileStatus(app, path, wanted)) return false;
  properties.location = path;
  if (checkedOut) properties.checkedOutIn = formatText(L"<%s> %s", {holderComputer, holderPath});
  return true;
}

}  // namespace

void PropertiesDialog::onInit() {
  const CString title = formatText(loadMessage(messages::propertiesTitle), {file.fileName});
  SetWindowTextW(window, title.c_str());
  setControlTexts(window, labels);
  setButtonTexts(window);
  setValues();
}

void PropertiesDialog::setValues() {
  SetDlgItemTextW(window, IDC_LOCATION, file.location.c_str());
  if (file.localVersion == -1) {
    SetDlgItemTextW(window, IDC_LOCAL_VERSION, L"-");
  } else {
    SetDlgItemInt(window, IDC_LOCAL_VERSION, static_cast<UINT>(file.localVersion), TRUE);
  }
  SetDlgItemInt(window, IDC_LATEST_VERSION, static_cast<UINT>(file.latestVersion), TRUE);
  SetDlgItemTextW(window, IDC_CHECKED_OUT_BY, file.checkedOutBy.c_str());
  SetDlgItemTextW(window, IDC_CHECKED_OUT_IN, file.checkedOutIn.c_str());
  SetDlgItemTextW(window, IDC_WORKFLOW_STATE, file.workflowState.c_str());
}

bool PropertiesDialog::onCommand(WORD id, WORD) {
  if (!closesDialog(id)) return false;
  end(id);
  return true;
}

void properties(AppContext& app) {
  CString path;
  FileProperties file;
  if (!fileToShow(path) || !readProperties(app, path, file)) return;
  PropertiesDialog(file).doModal(app.mainWindow);
}

}  // namespace tessaro
