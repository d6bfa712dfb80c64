#pragma once

#include <dbid.h>

#include "foundation/CString.h"

namespace tessaro {

/// An xref of the current drawing, as a pick or a walk over the drawing finds it.
struct XrefInfo {
  CString name;          ///< block name
  AcDbObjectId blockId;  ///< the AcDbBlockTableRecord
  CString path;          ///< the file's path as the drawing stores it, possibly relative
};

/// Reads an xref's block table record.
/// @return false, and `info` unchanged, if the block can't be opened or is no xref.
bool readXrefBlock(AcDbObjectId blockId, XrefInfo& info);

/// Reads the xref that a block reference places.
/// @return false, and `info` unchanged, if the entity is no reference of an xref.
bool readXrefReference(AcDbObjectId entityId, XrefInfo& info);

/// Takes the one xref that is preselected, or else asks the user to pick one.
/// @param impliedOnly with nothing preselected, don't ask.
/// @return true if one xref was picked. The command line has told of a wrong pick.
bool selectXref(XrefInfo& info, bool impliedOnly);

}  // namespace tessaro
