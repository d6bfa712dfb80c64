#pragma once

#include <windows.h>

#include "foundation/CString.h"

namespace tessaro {

/// Reads an identifier from the desktop.ini of a view's root.
/// @param rootPath the view's root, with or without a backslash at its end
/// @param kind 1 for the view's identifier, 2 for the vault's
/// @param identifier unchanged on failure
/// @return whether there is a well-formed identifier
bool readViewIdentifier(const CString& rootPath, int kind, GUID& identifier);

}  // namespace tessaro
