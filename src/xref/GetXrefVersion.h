#pragma once

#include <functional>

#include "foundation/AppContext.h"
#include "foundation/CString.h"

namespace tessaro {

class XrefStateObserver;
struct XrefInfo;

/// Lets the user choose a version of a file.
/// @param path the file's full path
/// @return 0 if none was chosen
using VersionChooser = std::function<long(const CString& path)>;

/// The command `getxrefversion`: the user picks an xref and chooses its version in a dialog.
void getChosenXrefVersion(AppContext& app, XrefStateObserver& observer,
                          const VersionChooser& choose);

/// The command `getxrefver2`: the user enters a version of the preselected xref at the command
/// line.
void getxrefver2(AppContext& app, XrefStateObserver& observer);

/// Unloads an xref and all xrefs nested in it, fetches a version of its file, and reloads them.
/// @param observer is notified
/// @param version passed to the vault unchecked
/// @param xref with an absolute path
/// @throws _com_error if the vault fails; the xrefs stay unloaded then
void getXrefVersion(AppContext& app, XrefStateObserver& observer, long version,
                    const XrefInfo& xref);

}  // namespace tessaro
