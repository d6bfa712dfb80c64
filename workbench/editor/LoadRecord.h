#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace wb {

/// An application that the editor loads on its own.
struct LoadRecord {
  std::wstring name;
  std::wstring file;
  DWORD reason = 0;  ///< AcadApp::LoadReasons
};

/// @return Windows' error: ERROR_INVALID_NAME and ERROR_INVALID_DATA for a wrong name and no file
LSTATUS writeLoadRecord(const LoadRecord& record);
LSTATUS deleteLoadRecord(const std::wstring& name);

/// The files of the applications that the editor loads on its own. They stand in two lists of
/// <name>, with LOADER (the file) and LOADCTRLS (AcadApp::LoadReasons): the user's,
/// HKEY_CURRENT_USER\Software\Workbench\Applications, and the computer's, which installers write,
/// HKEY_LOCAL_MACHINE\SOFTWARE\Autodesk\AutoCAD\R17.1\ACAD-6001:409\Applications. The user's
/// record of a name counts before the computer's.
std::vector<std::wstring> filesToLoadAtStart();
/// Empties the user's list.
void clearLoadRecord();

}  // namespace wb
