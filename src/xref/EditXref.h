#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"

class AcApDocument;

namespace tessaro {

class XrefList;

/// The command `editxref`: opens a picked xref's file in a window of its own, checked out where
/// that is possible. The xref stays unloaded in its parent until the user comes back to it.
/// @param pendingReloads gets the xref.
void editxref(AppContext& app, XrefList& pendingReloads);

/// Whether a document that isn't read-only is open on `path`, ignoring case.
/// @param found gets that document, if asked for.
bool isOpenForEditing(AppContext& app, const CString& path, AcApDocument** found = nullptr);

/// Loads again the xrefs of the activated parent whose windows have gone.
void onDocumentActivated(AppContext& app, XrefList& pendingReloads, AcApDocument* document);

/// Forgets the xrefs of a parent that is going away.
void onDocumentToBeDestroyed(AppContext&, XrefList& pendingReloads, AcApDocument* document);

}  // namespace tessaro
