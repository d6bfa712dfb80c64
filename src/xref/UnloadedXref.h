#pragma once

#include <windows.h>

#include <dbmain.h>

#include <acedxref.h>

#include "foundation/CString.h"

namespace tessaro {

/// An xref of the current drawing that is unloaded while its file changes. It is loaded again at
/// the end of the scope, also by an error.
class UnloadedXref {
 public:
  /// Nothing is unloaded yet.
  /// @param name the xref's name in the drawing; it must outlive the object
  explicit UnloadedXref(const CString& name) : name(name) {}
  UnloadedXref(const UnloadedXref&) = delete;
  UnloadedXref& operator=(const UnloadedXref&) = delete;
  ~UnloadedXref() {
    if (loadsAgain) acedXrefReload(name.c_str(), true, nullptr);
  }

  void unload() {
    acedXrefUnload(name.c_str(), true, nullptr);
    loadsAgain = true;
  }
  /// From now on somebody else is in charge of loading it.
  void leaveUnloaded() { loadsAgain = false; }

 private:
  const CString& name;
  bool loadsAgain = false;
};

}  // namespace tessaro
