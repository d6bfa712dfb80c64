#include "ui/GetVersionDialog.h"

#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "foundation/FormatText.h"
#include "ui/DialogTexts.h"
#include "vault/CheckOutState.h"
#include "vault/Messages.h"

namespace tessaro {

namespace {

void addColumn(HWND list, int position, const wchar_t* heading, int widthInPixels) {
  LVCOLUMNW column = {};
  column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
  column.pszText = const_cast<wchar_t*>(heading);
  column.cx = widthInPixels;
  column.iSubItem = position;
  SendMessageW(list, LVM_INSERTCOLUMNW, position, reinterpret_cast<LPARAM>(&column));
}

void addRow(HWND list, int row, long version, const CString& comment) {
  CString number = std::to_wstring(version);
  LVITEMW item = {};
  item.mask = LVIF_TEXT | LVIF_PARAM;
  item.iItem = row;
  item.pszText = number.data();
  item.lParam = version;
  SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));

  CString text = comment;
  LVITEMW cell = {};
  cell.iSubItem = 1;
  cell.pszText = text.data();
  SendMessageW(list, LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&cell));
}

CString commentCell(const VersionEntry& entry) {
  if (entry.version == 1) return textOf(loadMessage(messages::firstVersionComment));
  if (!entry.comment.empty()) return entry.comment;
  return textOf(loadMessage(messages::noComment));
}

CString bareName(const CString& path) {
  const size_t backslash = path.rfind(L'\\');
  return backslash == CString::npos ? path : path.substr(backslash + 1);
}

}  // namespace

void GetVersionDialog::onInit() {
  setTexts();
  addColumns();
  addVersions();
  SetFocus(GetDlgItem(window, IDC_VERSIONS));
}

void GetVersionDialog::setTexts() {
  SetWindowTextW(window, loadMessage(messages::getVersionTitle));
  const CString prompt = formatText(loadMessage(messages::getVersionPrompt), {bareName(path)});
  SetDlgItemTextW(window, IDC_SELECT_VERSION, prompt.c_str());
  setButtonTexts(window);
}

void GetVersionDialog::addColumns() {
  HWND list = GetDlgItem(window, IDC_VERSIONS);
  SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
  addColumn(list, 0, loadMessage(messages::versionColumn), 55);
  addColumn(list, 1, loadMessage(messages::commentColumn), 250);
}

void GetVersionDialog::addVersions() {
  std::vector<VersionEntry> versions;
  readCheckOutStateOrReport(app, path, &versions);
  HWND list = GetDlgItem(window, IDC_VERSIONS);
  int row = 0;
  for (auto entry = versions.rbegin(); entry != versions.rend(); ++entry) {
    addRow(list, row++, entry->version, commentCell(*entry));
  }
}

bool GetVersionDialog::onCommand(WORD id, WORD) {
  if (!closesDialog(id)) return false;
  takeSelection();
  end(id);
  return true;
}

bool GetVersionDialog::onNotify(const NMHDR& notification) {
  if (notification.idFrom != IDC_VERSIONS ||
      notification.code != static_cast<UINT>(LVN_ITEMACTIVATE)) {
    return false;
  }
  takeSelection();
  end(IDOK);
  return true;
}

void GetVersionDialog::takeSelection() {
  HWND list = GetDlgItem(window, IDC_VERSIONS);
  const LRESULT row = SendMessageW(list, LVM_GETSELECTIONMARK, 0, 0);
  if (row < 0) return;
  LVITEMW item = {};
  item.mask = LVIF_PARAM;
  item.iItem = static_cast<int>(row);
  if (SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))) {
    selectedVersion = static_cast<long>(item.lParam);
  }
}

long chooseVersion(AppContext& app, const CString& path) {
  // Registers the window class of the list.
  const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  GetVersionDialog dialog(app, path);
  return dialog.doModal(app.mainWindow) == IDOK ? dialog.selectedVersion : 0;
}

}  // namespace tessaro
