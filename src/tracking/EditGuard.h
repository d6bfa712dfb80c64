#pragma once

#include <map>

#include "foundation/AppContext.h"

class AcApDocument;

namespace tessaro {

/// The documents that the edit guard has checked, each with its warning-due flag: true while the
/// drawing is in a vault, isn't checked out here, and the user hasn't been warned.
using GuardedDocuments = std::map<AcApDocument*, bool>;

/// Checks whether the user has changed a vault drawing that isn't checked out here, and if so sends
/// the command that warns, once for each document. It shows no box, since it runs inside an event
/// of the host.
/// @param document the current one; it may be destroyed while the vault is asked
/// @throws _com_error if the vault fails to report the file's state
void editGuardCheck(AppContext& app, GuardedDocuments& guarded, AcApDocument* document);

/// The command `asklock`: offers the check-out of a changed drawing, which loses the changes.
void guardAskLock(AppContext& app, AcApDocument* document);

/// The command `telllockedelsewhere`: warns that a changed drawing can't be saved.
void guardTellLockedElsewhere(AppContext& app, AcApDocument* document);

}  // namespace tessaro
