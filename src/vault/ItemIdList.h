#pragma once

#include <memory>

#include <shobjidl.h>

#include "vault/VaultInterfaces.h"

namespace tessaro {

/// Frees an item id list (CoTaskMemFree).
struct ItemIdListDeleter {
  void operator()(ITEMIDLIST* list) const { CoTaskMemFree(list); }
};
using ItemIdList = std::unique_ptr<ITEMIDLIST, ItemIdListDeleter>;

/// Parses a bare file name in a folder (IShellFolder::ParseDisplayName).
/// @return the item
/// @throws _com_error
ItemIdList parseName(IShellFolder* folder, const _bstr_t& fileName);

/// @return the shell's interface of a vault folder
/// @throws _com_error
IShellFolderPtr shellFolderOf(IUnknown* folder);

}  // namespace tessaro
