#include "ui/PropertiesDialog.h"

#include <windows.h>

#include <acdocman.h>

#include "foundation/FormatText.h"
#include "ui/DialogTexts.h"
#include "vault/CurrentDrawing.h"
#include "vault/MessageStrings.h"
#include "vault/OpenVaultFile.h"
#include "xref/XrefInfo.h"
#include "xref/XrefPaths.h"

namespace tessaro {

namespace {

constexpr ControlText labels[] = {
    {IDC_LOCATION_LABEL, 241, "Location:"},
    {IDC_LOCAL_VERSION_LABEL, 242, "Local version:"},
    {IDC_LATEST_VERSION_LABEL, 243, "Latest version:"},
    {IDC_CHECKED_OUT_BY_LABEL, 244, "Checked out by:"},
    {IDC_CHECKED_OUT_IN_LABEL, 245, "Checked out in:"},
    {IDC_WORKFLOW_STATE_LABEL, 246, "Workflow state:"},
};

/// @return false if there is no file to show; the user has been told what there is to tell.
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
  const CString title = formatText(loadMessage(240, "%s - Properties"), {file.fileName});
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
