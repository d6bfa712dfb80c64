#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"

class AcApDocument;

namespace tessaro {

class XrefList;

/// The command `editxref`: checks a picked xref's file out, where possible, and opens it in its own
/// window. The xref stays unloaded in its parent until the user returns to the parent.
/// @param pendingReloads the xref is added
void editxref(AppContext& app, XrefList& pendingReloads);

/// Whether a document that isn't read-only is open on `path`, ignoring case.
/// @param found set to that document if there is one; null if not wanted
bool isOpenForEditing(AppContext& app, const CString& path, AcApDocument** found = nullptr);

/// Reloads the xrefs of the activated parent whose windows have been closed.
void onDocumentActivated(AppContext& app, XrefList& pendingReloads, AcApDocument* document);

/// Removes the xrefs of a parent that is about to be destroyed.
void onDocumentToBeDestroyed(AppContext&, XrefList& pendingReloads, AcApDocument* document);

}  // namespace tessaro
