#pragma once

#include <AdAChar.h>

namespace tessaro {

class AppContext;
struct PendingCheckIn;

/// First half of the check-in: asks, leaves the note in `note`, saves the current drawing if it has
/// changes and closes it. The vault client can't take in a file that the host holds open, so the
/// rest waits for the document to be gone.
/// @throws _com_error if the vault can't say whether the file is checked out or what it is called;
/// no note is left then
void unlock(AppContext& app, PendingCheckIn& note);

/// Second half, for every document that is gone: if a check-in waits for this one, hands the file
/// to the vault client's own check-in dialog.
/// @param fileName the full path that the document had
void onDocumentDestroyed(AppContext& app, PendingCheckIn& note, const ACHAR* fileName);

}  // namespace tessaro
