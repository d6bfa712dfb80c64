#include "BareWindow.h"

#include <shlwapi.h>

#include <acdocman.h>
#include <axlock.h>
#include <dbapserv.h>
#include <dbmain.h>
#include <xgraph.h>

#include <cwchar>
#include <string>

#include "BareVault.h"
#include "foundation/AddinSettings.h"
#include "ui/resource.h"

namespace bare {

namespace {

constexpr UINT_PTR timer = 1;

tessaro::VaultTextServicePtr& texts() {
  static tessaro::VaultTextServicePtr service;
  return service;
}

/// @param ownText where the service has none
_bstr_t textOf(long number, const wchar_t* ownText) {
  tessaro::VaultTextServicePtr& service = texts();
  if (!service) {
    wchar_t file[MAX_PATH];
    GetModuleFileNameW(GetModuleHandleW(L"baremodule.arx"), file, MAX_PATH);
    need(service.CreateInstance(__uuidof(TextService), nullptr, CLSCTX_ALL));
    need(service->open(_bstr_t(L"Halvern Vault Manager"), _bstr_t(L"TessaroAcad")));
  }
  _bstr_t text;
  return SUCCEEDED(service->text(number, text.GetAddress())) ? text : _bstr_t(ownText);
}

void setVersions(HWND window, const wchar_t* local, const wchar_t* latest) {
  wchar_t text[100];
  swprintf_s(text, 100, textOf(303, L"Version: %s/%s"), local, latest);
  SetDlgItemTextW(window, IDC_VERSION, text);
}

DWORD setting(HKEY key, const wchar_t* name, DWORD value) {
  DWORD size = sizeof(value);
  RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size);
  return value;
}

void initialise(HWND window) {
  constexpr DWORD none = 0xFFFFFFFF;
  HKEY key = nullptr;
  RegCreateKeyExW(HKEY_CURRENT_USER, tessaro::addinSettingsKey, 0, nullptr, 0, KEY_READ | KEY_WRITE,
                  nullptr, &key, nullptr);
  const DWORD left = setting(key, L"WndPosX", none);
  const DWORD top = left == none ? none : setting(key, L"WndPosY", none);
  RegCloseKey(key);
  if (left != none && top != none) {
    SetWindowPos(window, nullptr, static_cast<int>(left), static_cast<int>(top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
  }
  SetWindowTextW(window, textOf(300, L"Tessaro Status"));
  SetDlgItemTextW(window, IDC_XREFS_LATEST, textOf(301, L"Has latest xrefs"));
  SetDlgItemTextW(window, IDC_CHECKED_OUT_HERE, textOf(302, L"Is checked out here"));
  setVersions(window, L"-", L"-");
}

void savePosition(HWND window) {
  KillTimer(window, timer);
  RECT place;
  if (!GetWindowRect(window, &place)) return;
  HKEY key = nullptr;
  RegCreateKeyExW(HKEY_CURRENT_USER, tessaro::addinSettingsKey, 0, nullptr, 0, KEY_WRITE, nullptr,
                  &key, nullptr);
  RegSetValueExW(key, L"WndPosX", 0, REG_DWORD, reinterpret_cast<BYTE*>(&place.left),
                 sizeof(DWORD));
  RegSetValueExW(key, L"WndPosY", 0, REG_DWORD, reinterpret_cast<BYTE*>(&place.top), sizeof(DWORD));
  RegCloseKey(key);
}

INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM, LPARAM) {
  if (message == WM_INITDIALOG) {
    initialise(window);
    return TRUE;
  }
  if (message == WM_DESTROY) savePosition(window);
  return message == WM_DESTROY;
}

/// The look whether there are xrefs at all; the drawings measured have none.
void lookForXrefs() {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  std::wstring folder = acDocManagerPtr()->document(database)->fileName();
  folder.resize(MAX_PATH);
  PathRemoveFileSpecW(folder.data());
  PathAddBackslashW(folder.data());
  const AcAxDocLock lock(database);
  AcDbXrefGraph graph;
  if (acedGetCurDwgXrefGraph(graph, Adesk::kTrue) != Acad::eOk || graph.node(0)->numOut() != 0) {
    _com_issue_error(E_UNEXPECTED);
  }
}

}  // namespace

void releaseTexts() { texts() = nullptr; }

StatusWindow::StatusWindow(HINSTANCE instance, HWND owner) {
  bitmap = static_cast<HBITMAP>(
      LoadImageW(instance, MAKEINTRESOURCEW(IDB_REFRESH), IMAGE_BITMAP, 0, 0, LR_LOADTRANSPARENT));
  window = CreateDialogParamW(instance, MAKEINTRESOURCEW(IDD_STATUS), owner, procedure, 0);
  SendDlgItemMessageW(window, IDC_REFRESH, BM_SETIMAGE, IMAGE_BITMAP,
                      reinterpret_cast<LPARAM>(bitmap));
  showXrefs(BST_INDETERMINATE, true);
  HKEY key = nullptr;
  RegOpenKeyExW(HKEY_CURRENT_USER, tessaro::addinSettingsKey, 0, KEY_READ, &key);
  const DWORD interval = setting(key, L"XrefMonitoringInterval", 5);
  const DWORD shown = setting(key, L"StatusWnd", 1);
  RegCloseKey(key);
  refresh();
  minutes = interval;
  if (shown != 0) ShowWindow(window, SW_SHOW);
  SetTimer(window, timer, minutes * 60000, nullptr);
  ShowWindow(window, SW_SHOW);
}

StatusWindow::~StatusWindow() {
  DestroyWindow(window);
  DeleteObject(bitmap);
}

void StatusWindow::query(const wchar_t* path) {
  const VaultEntry entry(path);
  localVersion = entry.localVersion();
  latestVersion = entry.latestVersion();
  const bool checkedOut = entry.isCheckedOut();
  const bool here = entry.isHeldHere();
  lockBox = !checkedOut ? BST_UNCHECKED : here ? BST_CHECKED : BST_INDETERMINATE;
}

void StatusWindow::refresh() {
  AcApDocument* document = acDocManagerPtr()->curDocument();
  if (!document) return;
  query(document->fileName());
  KillTimer(window, timer);
  lookForXrefs();
  if (minutes != 0) SetTimer(window, timer, minutes * 60000, nullptr);
  if (xrefsEnabled) showXrefs(BST_UNCHECKED, false);
  show(false);
  known.insert(document);
}

void StatusWindow::documentActivated(AcApDocument* document) {
  if (known.count(document) == 0) {
    refresh();
    query(document->fileName());
  }
  showXrefs(BST_UNCHECKED, false);
  show(false);
}

void StatusWindow::documentDestroyed(AcApDocument* document) {
  known.erase(document);
  if (xrefsEnabled) showXrefs(BST_UNCHECKED, false);
  show(true);
}

void StatusWindow::documentSaved(AcDbDatabase* database, const wchar_t* path) {
  AcApDocument* saved = acDocManagerPtr()->document(database);
  if (saved != acDocManagerPtr()->curDocument()) return;
  query(path);
  known.insert(saved);
  show(false);
}

void StatusWindow::show(bool disabled) const {
  for (const int control : {IDC_CHECKED_OUT_HERE, IDC_VERSION, IDC_REFRESH}) {
    EnableWindow(GetDlgItem(window, control), !disabled);
  }
  CheckDlgButton(window, IDC_CHECKED_OUT_HERE, disabled ? BST_UNCHECKED : lockBox);
  if (disabled) {
    setVersions(window, L"-", L"-");
  } else {
    setVersions(window, std::to_wstring(localVersion).c_str(),
                std::to_wstring(latestVersion).c_str());
  }
}

void StatusWindow::showXrefs(UINT check, bool enabled) {
  CheckDlgButton(window, IDC_XREFS_LATEST, check);
  EnableWindow(GetDlgItem(window, IDC_XREFS_LATEST), enabled);
  xrefsEnabled = enabled;
}

}  // namespace bare
