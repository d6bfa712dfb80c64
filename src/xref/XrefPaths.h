#pragma once

#include "foundation/CString.h"

namespace tessaro {

/// @return the current drawing's folder, with a trailing backslash
/// @throws std::runtime_error if no drawing is open (reported in a box), if the drawing was never
/// saved, or if its path is over 259 characters
CString currentDrawingFolder();

/// Makes an xref's stored path absolute; an absolute path is unchanged.
/// @param path replaced by the absolute path; unchanged on failure
/// @param folder the base folder, set to the current drawing's if it is empty; null for the current
/// drawing's
/// @return false if the path is empty, there is no base folder, or the result is over 259
/// characters
bool makeAbsolute(CString& path, CString* folder = nullptr);

/// Makes an xref's path relative to the root of a vault's view: `\Sub\Part.dwg`, with a leading
/// backslash. No file is accessed (PathRelativePathToW).
/// @param storedPath absolute or relative to `drawingFolder`
/// @param rootFolder the view's root, without a trailing backslash
/// @return false if the file lies outside the root or its path is over 259 characters
bool relativeToRoot(const CString& storedPath, const CString& drawingFolder,
                    const CString& rootFolder, CString& relativePath);

/// Joins `folder` and `path` and resolves `..\` in them (PathAppendW).
/// @param joined unchanged on failure
/// @return false if the result is over 259 characters
bool joinPath(const CString& folder, const CString& path, CString& joined);

}  // namespace tessaro
