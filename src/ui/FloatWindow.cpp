#include "ui/FloatWindow.h"

#include <acdocman.h>
#include <aced.h>
#include <adscodes.h>

#include <utility>

#include "foundation/Border.h"
#include "foundation/CommandText.h"
#include "foundation/ComScope.h"
#include "foundation/FormatText.h"
#include "foundation/Registry.h"
#include "ui/resource.h"
#include "vault/MessageStrings.h"
#include "xref/XrefWork.h"

namespace tessaro {

namespace {

constexpr UINT_PTR monitorTimer = 1;
constexpr unsigned millisecondsPerMinute = 60000;

/// Lets the dialog procedure find the instance.
std::map<HWND, FloatWindow*> floatWindows;

class WorkingScope {
 public:
  explicit WorkingScope(bool& working) : working(working) { working = true; }
  WorkingScope(const WorkingScope&) = delete;
  WorkingScope& operator=(const WorkingScope&) = delete;
  ~WorkingScope() { working = false; }

 private:
  bool& working;
};

AcApDocument* currentDocument() { return acDocManagerPtr()->curDocument(); }

void setText(HWND window, int control, const wchar_t* text) {
  SetDlgItemTextW(window, control, text);
}

void enable(HWND window, int control, bool enabled) {
  EnableWindow(GetDlgItem(window, control), enabled);
}

void restorePosition(HWND window) {
  Registry settings;
  if (!settings.open(HKEY_CURRENT_USER, addinSettingsKey, KEY_READ | KEY_WRITE, true)) return;
  DWORD left = 0, top = 0;
  if (!readSetting(settings, L"WndPosX", left) || !readSetting(settings, L"WndPosY", top)) return;
  SetWindowPos(window, nullptr, static_cast<int>(left), static_cast<int>(top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER);
}

void setTexts(HWND window) {
  SetWindowTextW(window, loadMessage(300, "Tessaro Status"));
  setText(window, IDC_XREFS_LATEST, loadMessage(301, "Has latest xrefs"));
  setText(window, IDC_CHECKED_OUT_HERE, loadMessage(302, "Is checked out here"));
  const CString versions = formatText(loadMessage(303, "Version %s/%s"), {L"-", L"-"});
  setText(window, IDC_VERSION, versions.c_str());
}

CString versionText(int version) { return version < 1 ? L"-" : std::to_wstring(version); }

UINT lockBox(LockState lockState) {
  switch (lockState) {
    case LockState::checkedOutHere:
      return BST_CHECKED;
    case LockState::checkedOutElsewhere:
      return BST_INDETERMINATE;
    case LockState::notCheckedOut:
      break;
  }
  return BST_UNCHECKED;
}

}  // namespace

FloatWindow::FloatWindow(AppContext& app, HINSTANCE instance, HWND owner) : app(app) {
  // On a disabled button Windows shows all of the picture that isn't white, so its ground must be.
  refreshBitmap = static_cast<HBITMAP>(
      LoadImageW(instance, MAKEINTRESOURCEW(IDB_REFRESH), IMAGE_BITMAP, 0, 0, LR_LOADTRANSPARENT));
  window = CreateDialogParamW(instance, MAKEINTRESOURCEW(IDD_STATUS), owner, dialogProcedure, 0);
  try {
    if (window == nullptr) _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
    floatWindows[window] = this;
  } catch (...) {
    // No window may outlive the object that its procedure works on.
    destroy();
    throw;
  }
  SendDlgItemMessageW(window, IDC_REFRESH, BM_SETIMAGE, IMAGE_BITMAP,
                      reinterpret_cast<LPARAM>(refreshBitmap));
  state.xrefState = XrefState::unknown;
  showXrefBox();
  applySettings();
}

void FloatWindow::applySettings() {
  DWORD interval = 5, show = 1;
  readAddinSetting(L"XrefMonitoringInterval", interval);
  readAddinSetting(L"StatusWnd", show);
  Configure(show != 0, interval);
}

FloatWindow::~FloatWindow() { destroy(); }

void FloatWindow::destroy() {
  if (window != nullptr) DestroyWindow(window);
  if (refreshBitmap != nullptr) DeleteObject(refreshBitmap);
  floatWindows.erase(window);
}

void FloatWindow::startTimer() {
  // Beyond 71,582 minutes the 32 bits that Windows takes begin anew.
  SetTimer(window, monitorTimer, intervalMinutes * millisecondsPerMinute, nullptr);
}

void FloatWindow::Refresh() {
  alone([this] { refresh(); });
}

/// @return the document whose status is shown now; null if there is none, or not that one any more.
AcApDocument* FloatWindow::refresh() {
  AcApDocument* document = currentDocument();
  const CString path = document ? textOf(document->fileName()) : CString();
  if (path.empty() || !ask(path)) return nullptr;
  if (!state.notInVault) {
    checkCurrentXrefs(document);
    return document;
  }
  if (state.xrefState != XrefState::notApplicable) SetXrefBox(XrefState::notApplicable);
  ShowStatus(false);
  documents[document] = state;
  return document;
}

void FloatWindow::checkCurrentXrefs(AcApDocument* document) {
  KillTimer(window, monitorTimer);
  const unsigned before = comings;
  const XrefCheck result = checkXrefs(app, *this, false);
  // After an error the user has seen a box; the timer stays off, or it would come each period.
  if (intervalMinutes != 0 && result != XrefCheck::failed) startTimer();
  if (comings != before || result == XrefCheck::impossible || result == XrefCheck::failed) return;
  XrefState target = XrefState::notApplicable;
  if (result == XrefCheck::current) target = XrefState::latest;
  if (result == XrefCheck::outOfDate) target = XrefState::notLatest;
  if (target != state.xrefState) SetXrefBox(target);
  ShowStatus(false);
  documents[document] = state;
}

/// Reads the status of a file anew.
/// @return false if another document is on top by now, or one is gone; nothing has changed then.
bool FloatWindow::ask(const CString& path) {
  DrawingStatus answer = static_cast<const DrawingStatus&>(state);
  const unsigned before = comings;
  fillDrawingStatus(app, answer, path);
  if (comings != before) return false;
  static_cast<DrawingStatus&>(state) = answer;
  return true;
}

void FloatWindow::DocumentActivated(AcApDocument* document) {
  ++comings;
  const auto known = documents.find(document);
  if (known != documents.end()) {
    state = known->second;
    if (intervalMinutes != 0) showXrefBox();
    ShowStatus(false);
  } else if (working) {
    // Another box of the same cause on top of the one that the user looks at wouldn't help him.
    missedDocument = true;
    ShowStatus(true);
  } else {
    alone([this, document] { readNewDocument(document); });
  }
}

void FloatWindow::readNewDocument(AcApDocument* document) {
  const unsigned before = comings;
  const AcApDocument* refreshed = intervalMinutes != 0 ? refresh() : nullptr;
  if (comings != before) return;
  // A status that couldn't be had a moment ago would only bring its box once more.
  const bool failed = refreshed == document && state.notInVault;
  if (!failed && !ask(textOf(document->fileName()))) return;
  documents[document] = state;
  if (intervalMinutes != 0) showXrefBox();
  ShowStatus(false);
}

void FloatWindow::DocumentDestroyed(AcApDocument* document) {
  documents.erase(document);
  ++comings;
  if (working) missedDocument = true;
  if (state.xrefState != XrefState::notApplicable) SetXrefBox(XrefState::notApplicable);
  ShowStatus(true);
}

void FloatWindow::DocumentSaved(AcDbDatabase* database, const wchar_t* fileName) {
  AcApDocument* saved = acDocManagerPtr()->document(database);
  if (saved == nullptr) return;
  if (working) {
    // Asked about again when the step in hand is over, or when it comes to the top.
    documents.erase(saved);
    missedDocument = true;
    return;
  }
  alone([&] {
    const CString path = textOf(fileName != nullptr ? fileName : saved->fileName());
    const bool isCurrent = saved == currentDocument();
    const FloatDocState shown = state;
    if (!ask(path)) return;
    documents[saved] = state;
    if (isCurrent) {
      ShowStatus(false);
    } else {
      state = shown;
    }
  });
}

void FloatWindow::SetXrefsLatest() { enterXrefState(XrefState::latest); }

void FloatWindow::SetXrefsUnknown() { enterXrefState(XrefState::unknown); }

void FloatWindow::enterXrefState(XrefState xrefState) {
  if (intervalMinutes == 0 || state.xrefState == xrefState) return;
  SetXrefBox(xrefState);
  if (AcApDocument* document = currentDocument()) documents[document] = state;
}

void FloatWindow::Configure(bool show, unsigned interval) {
  if (show && interval != 0) {
    // The window has its place and its timer even if this first look fails.
    if (intervalMinutes == 0) atBorder([this] { Refresh(); });
    intervalMinutes = interval;
    ShowWindow(window, SW_SHOW);
    startTimer();
  } else {
    StopMonitoring();
  }
  ShowWindow(window, show ? SW_SHOW : SW_HIDE);
}

void FloatWindow::StopMonitoring() {
  KillTimer(window, monitorTimer);
  intervalMinutes = 0;
  if (state.xrefState != XrefState::notApplicable) SetXrefBox(XrefState::notApplicable);
  for (auto& [document, remembered] : documents) remembered.xrefState = XrefState::unknown;
}

void FloatWindow::SetXrefBox(XrefState xrefState) {
  state.xrefState = xrefState;
  showXrefBox();
}

void FloatWindow::showXrefBox() {
  const UINT check = state.xrefState == XrefState::latest    ? BST_CHECKED
                     : state.xrefState == XrefState::unknown ? BST_INDETERMINATE
                                                             : BST_UNCHECKED;
  CheckDlgButton(window, IDC_XREFS_LATEST, check);
  enable(window, IDC_XREFS_LATEST, state.xrefState != XrefState::notApplicable);
}

void FloatWindow::ShowStatus(bool disable) {
  const bool off = state.notInVault || disable;
  for (const int control : {IDC_CHECKED_OUT_HERE, IDC_VERSION, IDC_REFRESH}) {
    enable(window, control, !off);
  }
  CheckDlgButton(window, IDC_CHECKED_OUT_HERE, off ? BST_UNCHECKED : lockBox(state.lockState));
  showVersions(off ? L"-" : versionText(state.localVersion),
               off ? L"-" : versionText(state.latestVersion));
}

void FloatWindow::showVersions(const CString& local, const CString& latest) {
  const CString versions = formatText(loadMessage(303, "Version: %s/%s"), {local, latest});
  setText(window, IDC_VERSION, versions.c_str());
}

INT_PTR CALLBACK FloatWindow::dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM) {
  const auto known = floatWindows.find(window);
  return atBorder(INT_PTR{1}, [&]() -> INT_PTR {
    if (message == WM_INITDIALOG) {
      restorePosition(window);
      setTexts(window);
      return 1;
    }
    return known == floatWindows.end() ? 0 : known->second->handle(message, wParam);
  });
}

void FloatWindow::work(const std::function<void()>& step) {
  if (XrefWork::goesOn()) return;
  alone([&step] {
    const ComScope com;
    step();
  });
}

void FloatWindow::alone(const std::function<void()>& step) {
  // A box of the step's own lets the messages go on: the next tick, click or event would come into
  // the middle of it.
  if (working) return;
  {
    const WorkingScope scope(working);
    step();
  }
  if (!std::exchange(missedDocument, false)) return;
  if (AcApDocument* document = currentDocument()) DocumentActivated(document);
}

INT_PTR FloatWindow::handle(UINT message, WPARAM wParam) {
  switch (message) {
    case WM_TIMER:
      work([this] { refresh(); });
      return 1;
    case WM_COMMAND:
      onCommand(wParam);
      return 1;
    case WM_CLOSE:
      onClose();
      return 1;
    case WM_DESTROY:
      onDestroy();
      return 1;
    case WM_ACAD_KEEPFOCUS:
      // Whoever sends a dialog a message gets this as the answer.
      SetWindowLongPtrW(window, DWLP_MSGRESULT, 1);
      return 1;
    default:
      return 0;
  }
}

void FloatWindow::onCommand(WPARAM wParam) {
  if (HIWORD(wParam) != BN_CLICKED) return;
  switch (LOWORD(wParam)) {
    case IDC_XREFS_LATEST:
      work([this] { checkXrefs(app, *this, true); });
      break;
    case IDC_CHECKED_OUT_HERE:
      sendLockCommand();
      break;
    case IDC_REFRESH:
      work([this] { refresh(); });
      break;
  }
}

void FloatWindow::sendLockCommand() {
  if (state.lockState == LockState::checkedOutElsewhere) return;
  const bool held = state.lockState == LockState::checkedOutHere;
  sendToCommandLine(acDocManagerPtr()->mdiActiveDocument(),
                    commandText(app, held ? L"unlock" : L"lock"));
}

/// Closing the window is a lasting choice: it stays away until the settings bring it back.
void FloatWindow::onClose() {
  StopMonitoring();
  ShowWindow(window, SW_HIDE);
  writeAddinSetting(L"StatusWnd", 0);
}

void FloatWindow::onDestroy() {
  KillTimer(window, monitorTimer);
  RECT place;
  if (!GetWindowRect(window, &place)) return;
  writeAddinSetting(L"WndPosX", static_cast<DWORD>(place.left));
  writeAddinSetting(L"WndPosY", static_cast<DWORD>(place.top));
}

}  // namespace tessaro
