#pragma once

namespace tessaro {

class AppContext;

/// Checks the current drawing out: gives the open copy up, checks the file out and opens it again.
/// Unsaved changes are lost, which the question to the user says. A drawing outside the vaults, or
/// checked out by anyone already, is left alone without a word.
/// @param silent no question: the user has agreed before
/// @throws _com_error if the vault can't say who holds the file or what it is called; a failed
/// check-out is told to the user instead, and the drawing opens again all the same
void lock(AppContext& app, bool silent);

}  // namespace tessaro
