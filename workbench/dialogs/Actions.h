#pragma once

#include "dialogs/Answers.h"

namespace wb {

/// Does one step in an open dialog through its real controls, with the notifications that a
/// person's typing and clicking give.
/// @return what the transcript says of it; empty for a picture
/// @throws DialogError if it can't be done
std::wstring performStep(HWND dialog, const AnswerStep& step);

/// Clicks the button that `name` means ("close" is the caption's).
/// @throws DialogError if there is none, or it is disabled
void pressButton(HWND dialog, const std::wstring& name);

/// Clicks a button; the dialog is made the active one first, as a click does.
void clickControl(HWND dialog, HWND button);

/// Closes a dialog in the way that changes least.
void closeQuietly(HWND dialog);

}  // namespace wb
