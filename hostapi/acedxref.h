#pragma once

// Includes nothing, as published: windows.h, adesk.h and dbmain.h have to come first.

/// Takes an xref's content out of the drawing and lets go of its file. A null database stands for
/// the working database. `eKeyNotFound` if the drawing has no xref of that block name.
Acad::ErrorStatus acedXrefUnload(const ACHAR* XrefBlockname, const bool bQuiet = true,
                                 AcDbDatabase* pHostDb = nullptr);
/// Reads an xref's file again, and those nested in it. `eFileNotFound` if it isn't there.
Acad::ErrorStatus acedXrefReload(const ACHAR* XrefBlockname, const bool bQuiet = true,
                                 AcDbDatabase* pHostDb = nullptr);
