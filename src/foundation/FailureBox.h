#pragma once

#include <windows.h>

namespace tessaro {

/// Shows a failure in Windows' words. Needs no memory but its own, so that the borders of the
/// module can report a lack of memory with it.
/// @param context what the module was about to do, null if that isn't known
void plainFailureBox(const wchar_t* context, HRESULT code) noexcept;

}  // namespace tessaro
