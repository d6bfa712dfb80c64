#pragma once

#include <windows.h>

#include <dbmain.h>

#include <acedxref.h>

#include "foundation/CString.h"

namespace tessaro {

/// Reloads an unloaded xref of the current drawing at the end of a scope, also after an exception.
class UnloadedXref {
 public:
  /// Unloads nothing yet.
  /// @param name the xref's name in the drawing; outlives the object
  explicit UnloadedXref(const CString& name) : name(name) {}
  UnloadedXref(const UnloadedXref&) = delete;
  UnloadedXref& operator=(const UnloadedXref&) = delete;
  ~UnloadedXref() {
    if (reload) acedXrefReload(name.c_str(), true, nullptr);
  }

  /// Unloads the xref.
  void unload() {
    acedXrefUnload(name.c_str(), true, nullptr);
    reload = true;
  }
  /// Don't reload the xref at the end of the scope.
  void leaveUnloaded() { reload = false; }

 private:
  const CString& name;
  bool reload = false;
};

}  // namespace tessaro
