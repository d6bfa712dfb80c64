#pragma once

#include <string>
#include <vector>

namespace wb {

/// The applications that the editor loads on its own stand in two lists of <name>, with LOADER (the
/// file) and LOADCTRLS (AcadApp::LoadReasons): the user's below HKEY_CURRENT_USER, and the
/// computer's, which installers write, below HKEY_LOCAL_MACHINE. The user's record of a name counts
/// before the computer's.
constexpr const wchar_t* usersApplicationsKey = L"Software\\Workbench\\Applications";
constexpr const wchar_t* computersApplicationsKey =
    L"SOFTWARE\\Autodesk\\AutoCAD\\R17.1\\ACAD-6001:409\\Applications";

/// The files of those that are to be loaded at the start.
std::vector<std::wstring> filesToLoadAtStart();
/// Empties the user's list.
void clearLoadRecord();

}  // namespace wb
