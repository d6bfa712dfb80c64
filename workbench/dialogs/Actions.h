#pragma once

#include "dialogs/Answers.h"

namespace wb {

/// Does one step in an open dialog through its real controls, with the notifications that a
/// person's typing and clicking give. `told` gets what the transcript says of it (nothing for a
/// picture). Returns an empty text, or what kept it from being done.
std::wstring performStep(HWND dialog, const AnswerStep& step, std::wstring& told);

/// Clicks the button that `name` means ("close" is the caption's), or says why it can't be.
std::wstring pressButton(HWND dialog, const std::wstring& name);

/// Clicks a button; the dialog is made the active one first, as a click does.
void clickControl(HWND dialog, HWND button);

/// Closes a dialog in the way that changes least.
void closeQuietly(HWND dialog);

}  // namespace wb
