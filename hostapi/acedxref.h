#pragma once

#include "acadstrc.h"
#include "adesk.h"
#include "xgraph.h"

class AcDbDatabase;

/// Fills `graph` with the xrefs of the working database's drawing; `eNoDatabase` without one.
/// `includeGhosts` asks as well for the nested xrefs of those that aren't loaded.
Acad::ErrorStatus acedGetCurDwgXrefGraph(AcDbXrefGraph& graph,
                                         Adesk::Boolean includeGhosts = Adesk::kFalse);

/// Takes an xref's content out of the drawing and lets go of its file. A null database stands for
/// the working database. `eKeyNotFound` if the drawing has no xref of that block name.
Acad::ErrorStatus acedXrefUnload(const ACHAR* XrefBlockname, const bool bQuiet = true,
                                 AcDbDatabase* pHostDb = nullptr);
/// Reads an xref's file again, and those nested in it. `eFileNotFound` if it isn't there.
Acad::ErrorStatus acedXrefReload(const ACHAR* XrefBlockname, const bool bQuiet = true,
                                 AcDbDatabase* pHostDb = nullptr);
