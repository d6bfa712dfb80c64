#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"

namespace tessaro {

/// The commands `lockxref` and `unlockxref`: check the files of the picked xrefs out or in, in the
/// order of the selection. One object among them that is no xref ends the command for all.
/// @param lock true to check out.
void xrefCommand(AppContext& app, bool lock);

/// Checks one xref's file out or in.
/// @param path stored path of the xref.
/// @param name its block name.
/// @return true if a vault action was tried.
bool changeXrefCheckOut(AppContext& app, CString path, const CString& name, bool lock);

}  // namespace tessaro
