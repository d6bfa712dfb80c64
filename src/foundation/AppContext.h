#pragma once

#include <windows.h>

#include "foundation/CString.h"
#include "foundation/LaterCalls.h"

namespace tessaro {

/// The state of the running module that every layer may use.
class AppContext {
 public:
  /// The brand prefix of the names of commands and functions.
  CString prefix;
  /// The host's main window, null until the host has started the module.
  HWND mainWindow = nullptr;
  /// The library's own handle.
  HINSTANCE moduleInstance = nullptr;
  LaterCalls laterCalls;
};

/// @return the module's application object, null before its construction
AppContext* currentApp();

/// Sets the module's application object.
/// @param app isn't owned
void setCurrentApp(AppContext* app);

}  // namespace tessaro
