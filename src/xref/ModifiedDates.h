#pragma once

#include <windows.h>

#include <map>
#include <set>

#include "foundation/CString.h"

namespace tessaro {

struct VaultViewRecord;

/// The state of an xref's file in one check.
struct XrefFileRecord {
  FILETIME vaultDate{};  ///< modified date in the vault; valid if `inVault` is set
  bool exempt = false;   ///< the vault excludes the file from the comparison
  CString name;          ///< block name of an xref that uses the file
  bool visited = false;  ///< compared already
  bool inVault = false;  ///< the vault's result has the file
  CString fullPath;      ///< the view's root and the relative path
};

struct LessIgnoringCase {
  bool operator()(const CString& left, const CString& right) const {
    return lstrcmpiW(left.c_str(), right.c_str()) < 0;
  }
};

/// Records by the file's path relative to the view's root, ignoring case.
using XrefFileMap = std::map<CString, XrefFileRecord, LessIgnoringCase>;

/// Relative paths in plain wide-character order, the order of the vault's statements.
using PathSet = std::set<CString>;

enum class FileAge { current, outOfDate, unreadable };

/// Builds the database statements that query the modified dates of all `paths`.
/// @param rootPath the view's local root, whose desktop.ini has the view's identifier
/// @param paths relative to the root, each with a leading backslash
CString buildModifiedDateBatch(const CString& rootPath, long rootFolderId, const PathSet& paths);

/// Runs the statements and adds each row of the result to `files`.
/// @throws _com_error if the query or the reading of a row fails
void readModifiedDates(const VaultViewRecord& view, const CString& statements, XrefFileMap& files);

/// Compares the local file's write time, rounded down to two seconds, with the vault's date. A
/// newer local file is out of date too.
FileAge isOutOfDate(const XrefFileRecord& record);

}  // namespace tessaro
