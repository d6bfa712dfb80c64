#include "vault/ItemIdList.h"

#include "vault/CheckedCall.h"

namespace tessaro {

ItemIdList parseName(IShellFolder* folder, const _bstr_t& fileName) {
  _bstr_t name(fileName, true);
  LPITEMIDLIST parsed = nullptr;
  check(required(folder).ParseDisplayName(nullptr, nullptr, name, nullptr, &parsed, nullptr),
        *folder);
  return ItemIdList(parsed);
}

IShellFolderPtr shellFolderOf(IUnknown* folder) {
  IShellFolderPtr shellFolder;
  check(required(folder).QueryInterface(__uuidof(IShellFolder),
                                        reinterpret_cast<void**>(&shellFolder)),
        *folder);
  return shellFolder;
}

}  // namespace tessaro
