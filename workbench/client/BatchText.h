#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wb {

/// The question that a batch of database statements puts: the vault's modified dates of some files.
struct ModifiedDateQuestion {
  struct File {
    std::wstring name;
    std::wstring folder;  ///< from the view's root, with a backslash at both ends
  };
  std::vector<File> files;
  std::wstring viewId;  ///< a GUID without braces; all zeros stands for no particular view
  long rootFolderId = 0;
};

/// Understands the batch, which has to be
///
///     Exec Doc_Init_GMDM_Temp
///     Exec Doc_Pop_GMDM_Temp 'name', 'folder'       (any number of these)
///     Exec Doc_GetModifiedDateMultiple 'view id', root folder id
///     Exec Doc_Cleanup_GMDM_Temp
///
/// with a line feed between the statements and single quotes doubled inside a text. Anything else
/// raises ClientFailure with E_QVT_INVALID_QUERY and a text that names the statement.
ModifiedDateQuestion parseModifiedDateBatch(std::wstring_view statements);

}  // namespace wb
