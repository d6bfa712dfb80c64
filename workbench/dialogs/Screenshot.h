#pragma once

#include <string>

namespace wb {

/// Paints what the thread's windows still owe and writes a picture of the desktop to `file` (a
/// Windows path) as PNG. Returns an empty text, or why it couldn't be done; a file that stood there
/// is then still whole.
std::wstring savePicture(const std::wstring& file);

}  // namespace wb
