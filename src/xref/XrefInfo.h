#pragma once

#include <dbid.h>

#include "foundation/CString.h"

namespace tessaro {

/// An xref of the current drawing.
struct XrefInfo {
  CString name;          ///< block name
  AcDbObjectId blockId;  ///< the AcDbBlockTableRecord
  CString path;          ///< the file's stored path, possibly relative
};

/// Reads an xref's block table record.
/// @param info unchanged on failure
/// @return false if the block can't be opened or is no xref
bool readXrefBlock(AcDbObjectId blockId, XrefInfo& info);

/// Reads the xref of a block reference.
/// @param info unchanged on failure
/// @return false if the entity is no reference of an xref
bool readXrefReference(AcDbObjectId entityId, XrefInfo& info);

/// Reads the preselected xref, or asks the user to pick one. A wrong pick is reported at the
/// command line.
/// @param impliedOnly don't ask if nothing is preselected
/// @return whether one xref was picked
bool selectXref(XrefInfo& info, bool impliedOnly);

}  // namespace tessaro
