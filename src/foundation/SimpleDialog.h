#pragma once

#include <windows.h>

namespace tessaro {

/// A modal dialog out of the module's resources. Derived classes say what happens in it; an
/// exception that leaves one of their handlers closes the dialog and goes on from `doModal` as a
/// _com_error, since Windows doesn't carry one through a dialog procedure.
class SimpleDialog {
 public:
  SimpleDialog(const SimpleDialog&) = delete;
  SimpleDialog& operator=(const SimpleDialog&) = delete;
  virtual ~SimpleDialog() = default;

  /// Runs the dialog until it is ended (DialogBoxParamW); `owner` is disabled for so long.
  /// @param owner the owner window, null for none
  /// @return the value given to `end`
  /// @throws _com_error with the code of what a handler threw, or if Windows can't make the dialog
  INT_PTR doModal(HWND owner);

 protected:
  SimpleDialog(int templateId, bool centre) : templateId(templateId), centre(centre) {}

  /// WM_INITDIALOG: the controls exist, the window doesn't show yet and is centred already.
  virtual void onInit() {}

  /// WM_COMMAND. Nothing ends a dialog but a handler: Esc, Enter and the close box come here with
  /// IDCANCEL and IDOK as well.
  /// @param id the control's or menu item's id
  /// @param notification the control's notification code, 0 if there is no control
  /// @return whether the message was handled
  virtual bool onCommand(WORD id, WORD notification);

  /// WM_NOTIFY.
  /// @return whether the message was handled
  virtual bool onNotify(const NMHDR& notification);

  /// Ends the dialog with the result that `doModal` gives back (EndDialog).
  void end(INT_PTR result) { EndDialog(window, result); }

  /// The dialog's window, null before WM_INITDIALOG and after WM_NCDESTROY.
  HWND window = nullptr;

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool handle(UINT message, WPARAM wParam, LPARAM lParam);
  void centreOnOwner();

  const int templateId;
  const bool centre;
  /// Of the first handler that failed.
  HRESULT failure = S_OK;
};

/// The dialog of one template, centred on its owner if asked.
template <int resourceId, bool centreOnParent>
class CSimpleDialog : public SimpleDialog {
 protected:
  CSimpleDialog() : SimpleDialog(resourceId, centreOnParent) {}
};

}  // namespace tessaro
