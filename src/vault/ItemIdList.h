#pragma once

#include <memory>

#include <shobjidl.h>

#include "vault/VaultInterfaces.h"

namespace tessaro {

/// Frees an item id list as the shell asks for it.
struct ItemIdListDeleter {
  void operator()(ITEMIDLIST* list) const { CoTaskMemFree(list); }
};
using ItemIdList = std::unique_ptr<ITEMIDLIST, ItemIdListDeleter>;

/// The item of a bare file name in a folder (IShellFolder::ParseDisplayName).
/// @throws _com_error
ItemIdList parseName(IShellFolder* folder, const _bstr_t& fileName);

/// The shell's side of a vault's folder.
/// @throws _com_error
IShellFolderPtr shellFolderOf(IUnknown* folder);

}  // namespace tessaro
