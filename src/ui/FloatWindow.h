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

enum class XrefState { latest = 0, notLatest = 1, unknown = 2, notApplicable = 3 };

/// What the status window shows for one document, and remembers of the others.
struct FloatDocState : DrawingStatus {
  XrefState xrefState = XrefState::unknown;
};

/// The small floating window that shows, for the drawing on top, whether its xrefs are the latest,
/// whether it is checked out here, and its versions. It owns the timer of the xref monitor: with
/// the window hidden nothing is monitored.
class FloatWindow : public XrefStateObserver {
 public:
  /// Creates the window from dialog 115 and shows it as the settings say.
  /// @param owner the host's main window.
  /// @throws _com_error if Windows doesn't make the window.
  FloatWindow(AppContext& app, HINSTANCE instance, HWND owner);
  FloatWindow(const FloatWindow&) = delete;
  FloatWindow& operator=(const FloatWindow&) = delete;
  virtual ~FloatWindow();

  /// Reads the current document's status anew and checks its xrefs.
  void Refresh();

  /// Shows the document that came to the top: what is remembered of it, or what the vault says.
  void DocumentActivated(AcApDocument* document);
  void DocumentDestroyed(AcApDocument* document);

  /// Reads the saved file's status anew; the xrefs aren't checked. A database without a document is
  /// none of the window's.
  /// @param fileName null if the host doesn't tell it.
  void DocumentSaved(AcDbDatabase* database, const wchar_t* fileName);

  void SetXrefsLatest() override;
  void SetXrefsUnknown() override;

  /// Applies the settings at once.
  /// @param intervalMinutes period of the xref monitor; 0 turns it off.
  void Configure(bool show, unsigned intervalMinutes);

  void StopMonitoring();

 private:
  static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR handle(UINT message, WPARAM wParam);
  void onCommand(WPARAM wParam);
  /// Runs what the timer or a click asks for, unless work of that kind goes on already.
  void work(const std::function<void()>& step);
  /// Runs a step that asks the vault, unless another one does. What came meanwhile follows it.
  void alone(const std::function<void()>& step);
  void destroy();
  void onClose();
  void onDestroy();
  void sendLockCommand();

  AcApDocument* refresh();
  void checkCurrentXrefs(AcApDocument* document);
  void readNewDocument(AcApDocument* document);
  bool ask(const CString& path);
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
  bool working = false;
  /// A document came to the top, was saved or went while the window was asking the vault.
  bool missedDocument = false;
  /// How many documents came to the top or went. An answer of the vault's that was waited for
  /// meanwhile, with windows of the client's on the screen, may be that of a document long gone.
  unsigned comings = 0;
  HWND window = nullptr;
  HBITMAP refreshBitmap = nullptr;
  std::map<AcApDocument*, FloatDocState> documents;
};

}  // namespace tessaro
