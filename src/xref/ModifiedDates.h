#pragma once

#include <windows.h>

#include <map>
#include <set>

#include "foundation/CString.h"

namespace tessaro {

struct VaultViewRecord;

/// What one check knows of an xref's file.
struct XrefFileRecord {
  FILETIME vaultDate{};  ///< modified date in the vault; valid when inVault is set
  bool exempt = false;   ///< the vault takes the file out of the comparison
  CString name;          ///< block name of an xref that uses the file
  bool visited = false;  ///< compared already
  bool inVault = false;  ///< the vault's answer held the file
  CString fullPath;      ///< root of the view and the relative path
};

struct LessIgnoringCase {
  bool operator()(const CString& left, const CString& right) const {
    return lstrcmpiW(left.c_str(), right.c_str()) < 0;
  }
};

/// Records by the file's path relative to the view's root; spellings that differ in case share one.
using XrefFileMap = std::map<CString, XrefFileRecord, LessIgnoringCase>;

/// Relative paths in plain wide-character order, which is the order of the vault's statements.
using PathSet = std::set<CString>;

enum class FileAge { current, outOfDate, unreadable };

/// The text of database statements that asks the vault for the modified dates of all `paths`.
/// @param rootPath local root of the view, whose desktop.ini names the view.
/// @param paths relative to the root, each with a backslash in front.
CString buildModifiedDateBatch(const CString& rootPath, long rootFolderId, const PathSet& paths);

/// Runs the statements and enters each row of the answer into `files`.
/// @throws _com_error if the query or a row can't be read.
void readModifiedDates(const VaultViewRecord& view, const CString& statements, XrefFileMap& files);

/// Compares the local file's write time, at a grain of two seconds, with the vault's date. Any
/// difference counts, a newer local file too.
FileAge isOutOfDate(const XrefFileRecord& record);

}  // namespace tessaro
