#pragma once

#include "foundation/CString.h"

namespace tessaro {

/// Folder of the drawing of the host's working database, with a trailing backslash.
/// @throws std::runtime_error without a drawing (after a box that says so), or if the drawing has
/// no folder because it was never saved, or if its name doesn't fit a path of 260 characters.
CString currentDrawingFolder();

/// Makes an xref's stored path absolute; an absolute one stays as it is.
/// @param path the stored path, replaced by the absolute one. Unchanged on failure.
/// @param folder base folder; null or empty means the current drawing's. The base that was used
/// is written back.
/// @return false if the path is empty, there is no base, or the result is over 259 characters.
bool makeAbsolute(CString& path, CString* folder = nullptr);

/// Names an xref's file relative to the root of a vault's view: `\Sub\Part.dwg`, with the
/// backslash in front. No file is looked at (PathRelativePathToW).
/// @param storedPath as the drawing holds it, relative to `drawingFolder` or absolute.
/// @param rootFolder the view's root, without a trailing backslash.
/// @return false if the file lies outside the root, on another drive, or its path is too long.
bool relativeToRoot(const CString& storedPath, const CString& drawingFolder,
                    const CString& rootFolder, CString& relativePath);

/// `folder` and `path` joined, any `..\` in them resolved (PathAppendW).
/// @return false, and `joined` unchanged, if the result is over 259 characters.
bool joinPath(const CString& folder, const CString& path, CString& joined);

}  // namespace tessaro
