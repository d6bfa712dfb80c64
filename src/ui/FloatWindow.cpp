#include "ui/FloatWindow.h"

#include <acdocman.h>
#include <aced.h>
#include <adscodes.h>

#include <utility>

#include "foundation/AddinSettings.h"
#include "foundation/Border.h"
#include "foundation/CommandNames.h"
#include "foundation/CommandText.h"
#include "foundation/ComScope.h"
#include "foundation/FlagScope.h"
#include "foundation/FormatText.h"
#include "ui/DialogTexts.h"
#include "ui/resource.h"
#include "xref/XrefWork.h"

namespace tessaro {

namespace {

constexpr UINT_PTR monitorTimer = 1;
constexpr unsigned millisecondsPerMinute = 60000;

/// The instances, for the dialog procedure.
std::map<HWND, FloatWindow*> floatWindows;

constexpr ControlText boxTexts[] = {
    {IDC_XREFS_LATEST, messages::xrefsLatestBox},
    {IDC_CHECKED_OUT_HERE, messages::checkedOutHereBox},
};

AcApDocument* currentDocument() { return acDocManagerPtr()->curDocument(); }

void setText(HWND window, int control, const wchar_t* text) {
  SetDlgItemTextW(window, control, text);
}

void enable(HWND window, int control, bool enabled) {
  EnableWindow(GetDlgItem(window, control), enabled);
}

void restorePosition(HWND window) {
  Registry key;
  if (!openAddinSettings(key)) return;
  DWORD left = 0, top = 0;
  if (!readAddinSetting(key, addinSettings::windowLeft, left) ||
      !readAddinSetting(key, addinSettings::windowTop, top)) {
    return;
  }
  SetWindowPos(window, nullptr, static_cast<int>(left), static_cast<int>(top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER);
}

void setTexts(HWND window) {
  SetWindowTextW(window, loadMessage(messages::statusTitle));
  setControlTexts(window, boxTexts);
  const CString versions = formatText(loadMessage(messages::initialVersions), {L"-", L"-"});
  setText(window, IDC_VERSION, versions.c_str());
}

CString versionText(int version) { return version < 1 ? L"-" : std::to_wstring(version); }

UINT lockBox(CheckOutState lockState) {
  switch (lockState) {
    case CheckOutState::checkedOutHere:
      return BST_CHECKED;
    case CheckOutState::checkedOutElsewhere:
      return BST_INDETERMINATE;
    case CheckOutState::notCheckedOut:
    case CheckOutState::notInVault:
      break;
  }
  return BST_UNCHECKED;
}

}  // namespace

FloatWindow::FloatWindow(AppContext& app, HINSTANCE instance, HWND owner) : app(app) {
  // Windows shows all non-white pixels on a disabled button, so the background must be white.
  refreshBitmap = static_cast<HBITMAP>(
      LoadImageW(instance, MAKEINTRESOURCEW(IDB_REFRESH), IMAGE_BITMAP, 0, 0, LR_LOADTRANSPARENT));
  window = CreateDialogParamW(instance, MAKEINTRESOURCEW(IDD_STATUS), owner, dialogProcedure, 0);
  try {
    if (window == nullptr) _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
    floatWindows[window] = this;
  } catch (...) {
    // The window must not outlive this object.
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
  const DWORD interval = addinSettingOrDefault(addinSettings::xrefMonitoringInterval);
  const DWORD show = addinSettingOrDefault(addinSettings::statusWindow);
  Configure(show != 0, interval);
}

FloatWindow::~FloatWindow() { destroy(); }

void FloatWindow::destroy() {
  if (window != nullptr) DestroyWindow(window);
  if (refreshBitmap != nullptr) DeleteObject(refreshBitmap);
  floatWindows.erase(window);
}

void FloatWindow::startTimer() {
  // Windows takes 32 bits: the period wraps above 71,582 minutes.
  SetTimer(window, monitorTimer, intervalMinutes * millisecondsPerMinute, nullptr);
}

void FloatWindow::Refresh() {
  runExclusively([this] { refreshCurrent(); });
}

/// @return the document whose status is shown; null if there is none, or another one was activated
AcApDocument* FloatWindow::refreshCurrent() {
  AcApDocument* document = currentDocument();
  const CString path = document ? textOf(document->fileName()) : CString();
  if (path.empty() || !readStatus(path)) return nullptr;
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
  const unsigned before = documentChanges;
  const XrefCheck result = checkXrefs(app, *this, false);
  // After a failure the timer stays off: it would show the same box at every tick.
  if (intervalMinutes != 0 && result != XrefCheck::failed) startTimer();
  const bool noResult = result == XrefCheck::impossible || result == XrefCheck::failed;
  if (documentChanges != before || noResult) return;
  XrefState target = XrefState::notApplicable;
  if (result == XrefCheck::current) target = XrefState::latest;
  if (result == XrefCheck::outOfDate) target = XrefState::notLatest;
  if (target != state.xrefState) SetXrefBox(target);
  ShowStatus(false);
  documents[document] = state;
}

/// Reads the status of a file.
/// @return false, and the state is unchanged, if a document was activated or destroyed meanwhile
bool FloatWindow::readStatus(const CString& path) {
  DrawingStatus answer = static_cast<const DrawingStatus&>(state);
  const unsigned before = documentChanges;
  fillDrawingStatus(app, answer, path);
  if (documentChanges != before) return false;
  static_cast<DrawingStatus&>(state) = answer;
  return true;
}

void FloatWindow::DocumentActivated(AcApDocument* document) {
  ++documentChanges;
  const auto known = documents.find(document);
  if (known != documents.end()) {
    state = known->second;
    if (intervalMinutes != 0) showXrefBox();
    ShowStatus(false);
  } else if (busy) {
    // A second query could show a second box of the same cause above the first one.
    missedDocument = true;
    ShowStatus(true);
  } else {
    runExclusively([this, document] { readNewDocument(document); });
  }
}

void FloatWindow::readNewDocument(AcApDocument* document) {
  const unsigned before = documentChanges;
  const AcApDocument* refreshed = intervalMinutes != 0 ? refreshCurrent() : nullptr;
  if (documentChanges != before) return;
  // A status query that has just failed isn't repeated: it would show its box again.
  const bool failed = refreshed == document && state.notInVault;
  if (!failed && !readStatus(textOf(document->fileName()))) return;
  documents[document] = state;
  if (intervalMinutes != 0) showXrefBox();
  ShowStatus(false);
}

void FloatWindow::DocumentDestroyed(AcApDocument* document) {
  documents.erase(document);
  ++documentChanges;
  if (busy) missedDocument = true;
  if (state.xrefState != XrefState::notApplicable) SetXrefBox(XrefState::notApplicable);
  ShowStatus(true);
}

void FloatWindow::DocumentSaved(AcDbDatabase* database, const wchar_t* fileName) {
  AcApDocument* saved = acDocManagerPtr()->document(database);
  if (saved == nullptr) return;
  if (busy) {
    // Its status is read again after the current step, or when it is activated.
    documents.erase(saved);
    missedDocument = true;
    return;
  }
  runExclusively([&] {
    const CString path = textOf(fileName != nullptr ? fileName : saved->fileName());
    const bool isCurrent = saved == currentDocument();
    const FloatDocState shown = state;
    if (!readStatus(path)) return;
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
    // The window is shown and the timer started even if the first refresh fails.
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
  const CString versions = formatText(loadMessage(messages::versions), {local, latest});
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

void FloatWindow::runMonitorStep(const std::function<void()>& step) {
  if (XrefWork::inProgress()) return;
  runExclusively([&step] {
    const ComScope com;
    step();
  });
}

void FloatWindow::runExclusively(const std::function<void()>& step) {
  // A box of a step dispatches messages, so ticks, clicks and events arrive during the step.
  if (busy) return;
  {
    const FlagScope scope(busy);
    step();
  }
  if (!std::exchange(missedDocument, false)) return;
  if (AcApDocument* document = currentDocument()) DocumentActivated(document);
}

INT_PTR FloatWindow::handle(UINT message, WPARAM wParam) {
  switch (message) {
    case WM_TIMER:
      runMonitorStep([this] { refreshCurrent(); });
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
      // The result of a message to a dialog.
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
      runMonitorStep([this] { checkXrefs(app, *this, true); });
      break;
    case IDC_CHECKED_OUT_HERE:
      sendLockCommand();
      break;
    case IDC_REFRESH:
      runMonitorStep([this] { refreshCurrent(); });
      break;
  }
}

void FloatWindow::sendLockCommand() {
  if (state.lockState == CheckOutState::checkedOutElsewhere) return;
  const bool isHeld = state.lockState == CheckOutState::checkedOutHere;
  sendToCommandLine(acDocManagerPtr()->mdiActiveDocument(),
                    commandText(app, isHeld ? commands::unlock : commands::lock));
}

/// Hides the window for good: the setting is written, so that it stays hidden in later sessions.
void FloatWindow::onClose() {
  StopMonitoring();
  ShowWindow(window, SW_HIDE);
  writeAddinSetting(addinSettings::statusWindow, 0);
}

void FloatWindow::onDestroy() {
  KillTimer(window, monitorTimer);
  RECT place;
  if (!GetWindowRect(window, &place)) return;
  writeAddinSetting(addinSettings::windowLeft, static_cast<DWORD>(place.left));
  writeAddinSetting(addinSettings::windowTop, static_cast<DWORD>(place.top));
}

}  // namespace tessaro
