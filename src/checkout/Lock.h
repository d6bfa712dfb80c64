#pragma once

namespace tessaro {

class AppContext;

/// The commands `lock` and `locksilent`: close the current drawing, check its file out and open it
/// again. Unsaved changes are lost; the question to the user says so. For a drawing outside the
/// vaults, or checked out by anyone, nothing is done.
/// @param silent true: don't ask the user
/// @throws _com_error if the vault fails before the drawing is closed; a failed check-out is
/// reported in a box, and the drawing is opened again
void lock(AppContext& app, bool silent);

}  // namespace tessaro
