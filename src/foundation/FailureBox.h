#pragma once

#include <windows.h>

#include <comdef.h>

#include "foundation/AppMessageBox.h"

/// Tells a failure in Windows' words. Needs no memory but its own.
/// @param context what the module was about to do, null for nothing to say about that
void plainFailureBox(const wchar_t* context, HRESULT code) noexcept;

/// Tells a failure in the words that `makeText` gives as a _bstr_t; should there be no memory for
/// them, or they fail in another way, in Windows' words. Handlers of errors tell them by this,
/// since most have something to finish that an error in their own text must not keep them from.
template <class MakeText>
void failureBox(const wchar_t* context, HRESULT code, MakeText makeText) noexcept {
  try {
    const _bstr_t text = makeText();
    appMessageBox(text, MB_ICONINFORMATION);
  } catch (...) {
    plainFailureBox(context, code);
  }
}
