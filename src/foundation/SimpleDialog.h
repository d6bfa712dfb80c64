#pragma once

#include <windows.h>

namespace tessaro {

/// A modal dialog of the module's resources. An exception that leaves a handler of a derived class
/// closes the dialog and is thrown by `doModal` as a _com_error, since no exception may pass
/// through a dialog procedure.
class SimpleDialog {
 public:
  SimpleDialog(const SimpleDialog&) = delete;
  SimpleDialog& operator=(const SimpleDialog&) = delete;
  virtual ~SimpleDialog() = default;

  /// Runs the dialog until it is ended (DialogBoxParamW).
  /// @param owner the owner window, which is disabled meanwhile; null for none
  /// @return the argument of `end`
  /// @throws _com_error with the code of a handler's exception, or if the dialog can't be created
  INT_PTR doModal(HWND owner);

 protected:
  SimpleDialog(int templateId, bool centre) : templateId(templateId), centre(centre) {}

  /// WM_INITDIALOG: the controls exist, the window is centred and not yet visible.
  virtual void onInit() {}

  /// WM_COMMAND, which Windows also sends for Enter (IDOK), Esc and the close box (IDCANCEL). The
  /// handler has to end the dialog.
  /// @param id the id of the control or menu item
  /// @param notification the control's notification code, 0 without a control
  /// @return whether the message was handled
  virtual bool onCommand(WORD id, WORD notification);

  /// WM_NOTIFY.
  /// @return whether the message was handled
  virtual bool onNotify(const NMHDR& notification);

  /// Ends the dialog (EndDialog).
  /// @param result the result of `doModal`
  void end(INT_PTR result) { EndDialog(window, result); }

  /// The dialog's window, null before WM_INITDIALOG and after WM_NCDESTROY.
  HWND window = nullptr;

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool handle(UINT message, WPARAM wParam, LPARAM lParam);
  void centreOnOwner();

  const int templateId;
  const bool centre;
  /// The code of the first handler that failed.
  HRESULT failure = S_OK;
};

/// A dialog with its template's resource id as a parameter.
template <int resourceId, bool centreOnParent>
class CSimpleDialog : public SimpleDialog {
 protected:
  CSimpleDialog() : SimpleDialog(resourceId, centreOnParent) {}
};

}  // namespace tessaro
