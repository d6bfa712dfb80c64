#pragma once

#include <windows.h>

#include <functional>
#include <map>

#include "foundation/AppContext.h"
#include "tracking/DrawingStatus.h"
#include "xref/CheckXrefs.h"
#include "xref/XrefStateObserver.h"

class AcApDocument;
class AcDbDatabase;

namespace tessaro {

/// The state of a drawing's xrefs.
enum class XrefState { latest = 0, notLatest = 1, unknown = 2, notApplicable = 3 };

/// The state that the status window shows, kept for each open document.
struct FloatDocState : DrawingStatus {
  XrefState xrefState = XrefState::unknown;
};

/// The small floating window that shows whether the active drawing's xrefs are the latest, whether
/// the drawing is checked out here, and its versions. It owns the timer of the xref monitor: while
/// the window is hidden nothing is monitored.
class FloatWindow : public XrefStateObserver {
 public:
  /// Creates the window and applies the settings.
  /// @param owner the host's main window
  /// @throws _com_error if Windows fails to create the window
  FloatWindow(AppContext& app, HINSTANCE instance, HWND owner);
  FloatWindow(const FloatWindow&) = delete;
  FloatWindow& operator=(const FloatWindow&) = delete;
  virtual ~FloatWindow();

  /// Reads the current document's status and checks its xrefs.
  void Refresh();

  /// Shows the state of the activated document. The vault is asked only at its first activation.
  void DocumentActivated(AcApDocument* document);

  /// Removes the state of a document and clears the window.
  void DocumentDestroyed(AcApDocument* document);

  /// Reads the saved file's status; the xrefs aren't checked. A database without a document is
  /// ignored.
  /// @param fileName null for the document's file name
  void DocumentSaved(AcDbDatabase* database, const wchar_t* fileName);

  void SetXrefsLatest() override;
  void SetXrefsUnknown() override;

  /// Shows or hides the window and starts or stops the xref monitor.
  /// @param intervalMinutes the monitor's period, 0 for none
  void Configure(bool show, unsigned intervalMinutes);

  /// Stops the xref monitor.
  void StopMonitoring();

 private:
  static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR handle(UINT message, WPARAM wParam);
  void onCommand(WPARAM wParam);
  /// Runs a step of the timer or of a click, unless work on xrefs is in progress.
  void runMonitorStep(const std::function<void()>& step);
  /// Runs a step that asks the vault, unless another one is running. Afterwards a document event
  /// that was missed is handled.
  void runExclusively(const std::function<void()>& step);
  void destroy();
  void onClose();
  void onDestroy();
  void sendLockCommand();

  AcApDocument* refreshCurrent();
  void checkCurrentXrefs(AcApDocument* document);
  void readNewDocument(AcApDocument* document);
  bool readStatus(const CString& path);
  void applySettings();
  void startTimer();
  void ShowStatus(bool disable);
  void SetXrefBox(XrefState xrefState);
  void showXrefBox();
  void enterXrefState(XrefState xrefState);
  void showVersions(const CString& local, const CString& latest);

  AppContext& app;
  FloatDocState state;
  unsigned intervalMinutes = 0;
  /// A step that asks the vault is running.
  bool busy = false;
  /// A document was activated, saved or destroyed during such a step.
  bool missedDocument = false;
  /// Counts the activated and destroyed documents. If it changed during a query of the vault, which
  /// can show windows of the client, the result belongs to another document than the current one.
  unsigned documentChanges = 0;
  HWND window = nullptr;
  HBITMAP refreshBitmap = nullptr;
  std::map<AcApDocument*, FloatDocState> documents;
};

}  // namespace tessaro
