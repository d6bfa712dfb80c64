#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/OpenVaultFile.h"

namespace tessaro {

/// The commands `lockxref` and `unlockxref`: check the files of the selected xrefs out or in, in
/// the order of the selection. If a selected object is no xref, nothing is done.
/// @param lock true: check out, false: check in
void xrefCommand(AppContext& app, bool lock);

/// Checks one xref's file out or in. A failure is reported in a box.
/// @param path the xref's stored path
/// @param name its block name
/// @param lock true: check out, false: check in
/// @return whether the vault was asked to do it
bool changeXrefCheckOut(AppContext& app, CString path, const CString& name, bool lock);

/// Checks an xref's file out. A failure is reported in a box.
void checkOutOrReport(AppContext& app, const OpenedVaultFileLegacy& opened);

}  // namespace tessaro
