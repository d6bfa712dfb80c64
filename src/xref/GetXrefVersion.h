#pragma once

#include <functional>

#include "foundation/AppContext.h"
#include "foundation/CString.h"

namespace tessaro {

class XrefStateObserver;
struct XrefInfo;

/// Lets the user choose a version of a file; 0 if none was chosen.
/// @param path the file's full path.
using VersionChooser = std::function<long(const CString& path)>;

/// The command `getxrefversion`: the user picks an xref, and its version from a dialog.
void getxrefversion(AppContext& app, XrefStateObserver& observer, const VersionChooser& choose);

/// The command `getxrefver2`: a version number from the command line, for the preselected xref.
void getxrefver2(AppContext& app, XrefStateObserver& observer);

/// Brings a version of an xref's file into the view: the xref and all that is nested in it are
/// unloaded, the version is fetched, and the same ones are loaded again.
/// @param version goes to the vault as it stands.
/// @param xref its path already absolute.
/// @throws _com_error if the vault fails; what was unloaded then stays unloaded.
void getXrefVersion(AppContext& app, XrefStateObserver& observer, long version,
                    const XrefInfo& xref);

}  // namespace tessaro
