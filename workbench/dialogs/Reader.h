#pragma once

#include <windows.h>

#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace wb {

/// Something that can't be done on the screen: a control isn't there, a picture can't be written.
class DialogError : public std::exception {
 public:
  explicit DialogError(std::wstring reason) : reason(std::move(reason)) {}

  const char* what() const noexcept override { return "it can't be done on the screen"; }

  std::wstring reason;
};

/// The top-level windows of this thread.
std::vector<HWND> threadWindows();
/// The windows just below a window, in tab order.
std::vector<HWND> children(HWND window);

std::wstring windowTitle(HWND window);
std::wstring windowClass(HWND window);

/// The module's status window on this thread, null if there is none. It is found by its controls:
/// its title is in the language of the client.
HWND findStatusWindow();

/// Whether the window is a top-level window of the system's dialog class, as message boxes are too.
bool isDialogWindow(HWND window);

/// Whether a dialog runs its own message loop: such a one has disabled its owner. One without an
/// owner counts as modal.
bool looksModal(HWND dialog);

/// Whether it has anything a person could use: a button, a field, a list.
bool hasControls(HWND dialog);

/// The text of a message box: a dialog of texts and of a message box's own buttons alone. Empty for
/// any other dialog.
std::wstring messageBoxText(HWND dialog);

/// The texts of all controls but the push buttons, each by its id behind a blank, and the rows of
/// its list views.
std::wstring controlTexts(HWND dialog);

/// The caption and whatever words its controls show, buttons and headings with them.
std::wstring allTexts(HWND dialog);

/// Whether it stands in the middle of its owner, or else whole on the screen, in words.
std::wstring placeOf(HWND dialog);

/// The push buttons that can be seen, in tab order.
std::vector<HWND> pushButtons(HWND dialog);

/// The only push button that can be seen, null if there are none or several.
HWND onlyButton(HWND dialog);

/// The control with that id anywhere below the dialog, null if there is none.
HWND findControl(HWND dialog, int id);

/// The button that an answer names: yes, no, ok, cancel, abort, retry, ignore or a control's
/// number. Null if the dialog doesn't have it.
HWND findButton(HWND dialog, std::wstring_view name);

/// The button that changes least: Cancel, else No, else the only one. Null if there is none such.
HWND leastButton(HWND dialog);

/// "yes" for IDYES and so on; the number for any other id.
std::wstring buttonName(int id);

/// MB_... names joined by `|`, for the flags of a message box.
std::wstring messageBoxFlags(UINT flags);

}  // namespace wb
