#pragma once

#include <windows.h>

namespace wb {

/// The module's status window on this thread, null if there is none. It is found by its controls:
/// its title is in the language of the client.
HWND findStatusWindow();

}  // namespace wb
