#pragma once

#include <string>
#include <vector>

namespace wb {

/// The editor's per-user list of applications that it loads on its own:
/// HKEY_CURRENT_USER\Software\Workbench\Applications\<name>, with LOADER (the file) and LOADCTRLS
/// (AcadApp::LoadReasons).
std::vector<std::wstring> filesToLoadAtStart();
/// Empties the list.
void clearLoadRecord();

}  // namespace wb
