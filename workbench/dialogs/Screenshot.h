#pragma once

#include <string>

namespace wb {

/// Paints what the thread's windows still owe and writes a picture of the part of the desktop that
/// they take to `file` (a Windows path) as PNG.
/// @throws DialogError if that can't be done; a file that stood there is then still whole
void savePicture(const std::wstring& file);

}  // namespace wb
