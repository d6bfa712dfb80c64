#pragma once

#include <map>

#include "foundation/AppContext.h"

class AcApDocument;

namespace tessaro {

/// Drawings that the edit guard has looked at, each with its warning-due flag: true while the
/// drawing is in a vault, not held here, and no warning was given; false when nothing more is to
/// be done for it.
using GuardedDocuments = std::map<AcApDocument*, bool>;

/// Looks whether the user has changed a vault drawing that isn't checked out here, and if so sends
/// the command that tells it, once in the document's life. Shows nothing itself, since it runs
/// inside a host event.
/// @param document the current one; it may go while the vault is asked.
/// @throws _com_error if the vault fails to tell who holds the file.
void editGuardCheck(AppContext& app, GuardedDocuments& guarded, AcApDocument* document);

/// The command `asklock`: offers the check-out of the changed drawing. Yes gives the changes up.
void guardAskLock(AppContext& app, AcApDocument* document);

/// The command `telllockedelsewhere`: tells that the changed drawing can't be saved.
void guardTellLockedElsewhere(AppContext& app, AcApDocument* document);

}  // namespace tessaro
