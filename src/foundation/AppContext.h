#pragma once

#include <windows.h>

#include "foundation/CString.h"
#include "foundation/LaterCalls.h"

namespace tessaro {

/// What every layer may know of the running module.
class AppContext {
 public:
  /// The brand before the names of commands and functions.
  CString prefix;
  /// The host's main window, null until the host has started the module.
  HWND mainWindow = nullptr;
  /// The library's own handle.
  HINSTANCE moduleInstance = nullptr;
  LaterCalls laterCalls;
};

/// The module's application object, null before its construction.
AppContext* currentApp();

/// Makes `app` the module's application object. It isn't owned.
void setCurrentApp(AppContext* app);

}  // namespace tessaro
