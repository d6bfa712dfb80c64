#pragma once

#include <shlobj.h>

#include <string>

#include "client/ComObject.h"

namespace wb {

/// The verbs of a vault file in the shell, run by name (IContextMenu::InvokeCommand). There is one,
/// "Unlock": it asks how to check the file in and does so. As a shell extension does, it tells the
/// user itself what went wrong.
Owned<IContextMenu> fileMenu(const std::wstring& path);

}  // namespace wb
