#pragma once

#include <windows.h>

#include <shlobj.h>

#include <cstdint>
#include <string>

#include "client/ComObject.h"
#include "store/Store.h"
#include "TessaroClient.h"

namespace wb {

/// What identifies an object of a vault; everything else is read from the store at each call, so an
/// object never returns old data.
struct VaultItem {
  long id = 0;
  std::wstring name;
  std::wstring path;  ///< of a file or a folder, in the local view; without a trailing backslash
};

/// The client's main object, which no one is logged in with yet.
Owned<VaultClient> mainObject();

/// The client's string service.
Owned<VaultTextService> textService();

/// A file of a vault, in the generation of the interface.
template <class File>
Owned<File> fileObject(const StoredVault& vault, const StoredFile& file);

/// A local folder of a vault, in the generation of the interface.
/// @throws ClientFailure E_QVT_FOLDER_NOT_FOUND
template <class Folder>
Owned<Folder> folderObject(const std::wstring& path);

/// The id of a folder object.
/// @throws ClientFailure for an object that isn't the client's
long folderIdOf(VaultFolderLegacy* folder);

/// The verbs of a vault file in the shell, run by name (IContextMenu::InvokeCommand). There is one,
/// "Unlock": it asks how to check the file in and does so. As a shell extension does, it shows the
/// user itself what went wrong.
Owned<IContextMenu> fileMenu(const std::wstring& path);

/// The data-card access of a file.
Owned<VaultCardData> cardDataObject(const VaultItem& file);

/// Runs a batch of database statements, which asks for the modified dates of some files. It has to
/// be
///
///     Exec Doc_Init_GMDM_Temp
///     Exec Doc_Pop_GMDM_Temp 'name', 'folder'       (any number of these)
///     Exec Doc_GetModifiedDateMultiple 'view id', root folder id
///     Exec Doc_Cleanup_GMDM_Temp
///
/// with a line feed between the statements and single quotes doubled inside a text. A folder is
/// written from the view's root, with a backslash at both ends; a view id is a GUID without braces,
/// and all zeros stands for no particular view.
/// @return a VaultRowList
/// @throws ClientFailure E_QVT_INVALID_QUERY, with a text that names the statement
Owned<IUnknown> runBatch(const std::wstring& statements, const StoredVault& vault);

/// Equal names have equal ids: for what the store knows by its name alone, a state or a user.
long idOfName(const std::wstring& name);

/// An object that is only named: a workflow state, a user, the root folder.
/// @param kind what it is, for its label
Owned<VaultObject> namedObject(const std::wstring& kind, const VaultItem& item);
Owned<VaultObject> namedObject(const std::wstring& kind, const std::wstring& name);

/// VaultObject of whatever a vault holds, as a part of a larger object.
struct NamedPart : Dual<VaultObject, VaultItem> {
  STDMETHODIMP id(LONG* result) override;
  STDMETHODIMP name(BSTR* result) override;
};

/// A cursor on the first element of a list.
Owned<VaultPosition> firstPosition(const void* list, size_t count);

/// The index of the element at a cursor, which moves on.
/// @throws ClientFailure E_INVALIDARG for a position that isn't the client's or belongs to another
/// list, E_QVT_END_OF_LIST past the last element
size_t advance(VaultPosition* position, const void* list);

/// The file of a path as it is now.
/// @throws ClientFailure E_QVT_FILE_NOT_FOUND
const StoredFile& storedFile(const std::wstring& path);

/// A date of the store (FILETIME) as an automation date: in UTC, or in this computer's local time.
/// @throws ClientFailure for a date that automation can't represent, such as one before 1900
DATE utcDate(std::uint64_t fileTime);
DATE localDate(std::uint64_t fileTime);

/// The client's wording for a result code, in the language that it is set to; empty if it has none.
/// @throws std::runtime_error for a language file that can't be read or is damaged
std::wstring errorText(HRESULT code);

}  // namespace wb
