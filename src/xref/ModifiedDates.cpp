#include "xref/ModifiedDates.h"

#include <shlwapi.h>

#include <iterator>

#include "foundation/ScopedFile.h"
#include "vault/CheckedCall.h"
#include "vault/VaultView.h"
#include "vault/ViewIdentifier.h"
#include "xref/XrefPaths.h"

namespace tessaro {

namespace {

CString quotesDoubled(const wchar_t* text) {
  CString doubled;
  for (; *text; ++text) {
    doubled += *text;
    if (*text == L'\'') doubled += L'\'';
  }
  return doubled;
}

CString populateStatement(const CString& path) {
  wchar_t folder[MAX_PATH] = L"\\";
  PathAppendW(folder, path.c_str());
  PathRemoveFileSpecW(folder);
  PathAddBackslashW(folder);
  return L"Exec Doc_Pop_GMDM_Temp '" + quotesDoubled(PathFindFileNameW(path.c_str())) + L"', '" +
         quotesDoubled(folder) + L"'\n";
}

CString viewIdText(const CString& rootPath) {
  GUID id{};
  if (!readViewIdentifier(rootPath, 1, id)) id = GUID{};
  wchar_t text[39];
  swprintf_s(text, std::size(text), L"%08lX-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X", id.Data1,
             id.Data2, id.Data3, id.Data4[0], id.Data4[1], id.Data4[2], id.Data4[3], id.Data4[4],
             id.Data4[5], id.Data4[6], id.Data4[7]);
  return text;
}

/// Skips the result sets without rows.
/// @return whether the list is at its first row
bool findRows(VaultRowList& rows) {
  for (;;) {
    VARIANT_BOOL hasRow = VARIANT_FALSE;
    const HRESULT fetched = rows.fetchRow(&hasRow);
    check(fetched, rows);
    if (fetched != S_FALSE) return hasRow == VARIANT_TRUE;
    VARIANT_BOOL more = VARIANT_FALSE;
    do {
      check(rows.nextResult(&more), rows);
    } while (more != VARIANT_TRUE && more != VARIANT_FALSE);
    if (more == VARIANT_FALSE) return false;
  }
}

_bstr_t textAt(VaultRowList& rows, long column) {
  _bstr_t text;
  check(rows.textAt(column, text.GetAddress()), rows);
  return text;
}

/// @param expected where the row's file is looked for first
/// @return the file's place in `files`
XrefFileMap::iterator readRow(VaultRowList& rows, XrefFileMap& files,
                              XrefFileMap::iterator expected) {
  const _bstr_t fileName = textAt(rows, 1);
  const _bstr_t folder = textAt(rows, 2);
  DATE date = 0;
  check(rows.dateAt(3, &date), rows);
  VARIANT_BOOL exempt = VARIANT_FALSE;
  check(rows.flagAt(4, &exempt), rows);

  wchar_t key[MAX_PATH] = L"\\";
  PathAppendW(key, textOf(folder).c_str());
  PathAppendW(key, textOf(fileName).c_str());
  const auto found = files.try_emplace(expected, key);
  XrefFileRecord& record = found->second;
  SYSTEMTIME time;
  if (VariantTimeToSystemTime(date, &time)) SystemTimeToFileTime(&time, &record.vaultDate);
  record.exempt = exempt == VARIANT_TRUE;
  record.inVault = true;
  return found;
}

bool readLocalTime(const CString& path, FILETIME& time) {
  const ScopedFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  FILETIME written;
  SYSTEMTIME rounded;
  if (!file || !GetFileTime(file.get(), nullptr, nullptr, &written) ||
      !FileTimeToSystemTime(&written, &rounded)) {
    return false;
  }
  rounded.wMilliseconds = 0;
  rounded.wSecond &= ~1;
  return SystemTimeToFileTime(&rounded, &time) != FALSE;
}

}  // namespace

CString buildModifiedDateBatch(const CString& rootPath, long rootFolderId, const PathSet& paths) {
  CString statements = L"Exec Doc_Init_GMDM_Temp\n";
  for (const CString& path : paths) statements += populateStatement(path);
  statements += L"Exec Doc_GetModifiedDateMultiple '" + viewIdText(rootPath) + L"', " +
                std::to_wstring(rootFolderId) + L"\nExec Doc_Cleanup_GMDM_Temp";
  return statements;
}

void readModifiedDates(const VaultViewRecord& view, const CString& statements, XrefFileMap& files) {
  IUnknownPtr result;
  check(view.query->execute(_bstr_t(statements.c_str()), &result), *view.query);
  if (!result) return;
  VaultRowListPtr rows;
  check(result->QueryInterface(__uuidof(VaultRowList), reinterpret_cast<void**>(&rows)), *result);
  // The rows mostly come in the order of the statements, which is nearly that of the map.
  auto expected = files.begin();
  VARIANT_BOOL hasRow = findRows(*rows) ? VARIANT_TRUE : VARIANT_FALSE;
  while (hasRow == VARIANT_TRUE) {
    expected = std::next(readRow(*rows, files, expected));
    hasRow = VARIANT_FALSE;
    check(rows->fetchRow(&hasRow), *rows);
  }
}

FileAge isOutOfDate(const XrefFileRecord& record) {
  FILETIME local;
  if (!readLocalTime(record.fullPath, local)) return FileAge::unreadable;
  if (!record.inVault || record.exempt) return FileAge::current;
  return CompareFileTime(&record.vaultDate, &local) == 0 ? FileAge::current : FileAge::outOfDate;
}

}  // namespace tessaro
