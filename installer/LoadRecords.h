#pragma once

#include <windows.h>

#include "Text.h"

/// The load records of the 64-bit AutoCAD products on this computer, below
/// HKEY_LOCAL_MACHINE\SOFTWARE\Autodesk\AutoCAD\R17.1\ACAD-<product>:<language> and R17.2. What an
/// operation changes it keeps in a key of its own until `restore` or `forget`.
class LoadRecords {
 public:
  /// @param owner distinguishes what different packages keep
  explicit LoadRecords(const wchar_t* owner) : kept(L"SOFTWARE\\TessaroAcad Setup ", owner) {}

  /// Has every product load the file at its start.
  /// @return Windows' error code, as of all operations
  LSTATUS enter(const wchar_t* file);
  /// Deletes the records that load the file.
  LSTATUS remove(const wchar_t* file);
  /// Brings back what `enter` or `remove` has changed.
  LSTATUS restore();
  /// Deletes what was kept.
  LSTATUS forget();

  /// The number of products that the operation has changed.
  DWORD changed() const { return count; }

 private:
  LSTATUS keep(const wchar_t* path, HKEY product);
  template <typename Change>
  LSTATUS changeProducts(Change change);

  const Text kept;
  DWORD count = 0;
};
