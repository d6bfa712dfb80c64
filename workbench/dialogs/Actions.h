#pragma once

#include <random>

#include "dialogs/Answers.h"

namespace wb {

/// Clicks the button that `name` means ("close" is the caption's).
/// @throws DialogError if there is none, or it is disabled
void pressButton(HWND dialog, const std::wstring& name);

/// Closes a dialog in the way that changes least.
void closeQuietly(HWND dialog);

/// An answer that the dialog can take: a button of its own, before that perhaps a row, texts in its
/// fields and ticks in its boxes.
/// @param stream where the choices are taken from
/// @param answeredBefore answers that this dialog got already; after a few it is closed
Answer randomAnswer(HWND dialog, std::mt19937& stream, unsigned answeredBefore);

}  // namespace wb
