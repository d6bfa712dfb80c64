#pragma once

#include <windows.h>

namespace tessaro {

/// Shows a box with Windows' message for a failure. It allocates no memory, so that it can report a
/// lack of memory.
/// @param context what the module was doing, null if unknown
void plainFailureBox(const wchar_t* context, HRESULT code) noexcept;

}  // namespace tessaro
