#pragma once

#include <AdAChar.h>

namespace tessaro {

class AppContext;
struct PendingCheckIn;

/// The command `unlock`, the first half of the check-in: asks the user, saves the current drawing
/// if it has changes and closes it. The vault client can't check in a file that the host has open,
/// so the second half waits for the end of the document.
/// @param pending set before the drawing is saved and closed
/// @throws _com_error if the vault fails; `pending` is unchanged then
void unlock(AppContext& app, PendingCheckIn& pending);

/// The second half of the check-in, for every document that was destroyed: if its check-in is
/// waiting, runs the vault client's own check-in dialog.
/// @param fileName the full path of the document
void onDocumentDestroyed(AppContext& app, PendingCheckIn& pending, const ACHAR* fileName);

}  // namespace tessaro
