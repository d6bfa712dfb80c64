// A folder in both generations and in the shell.

#include <algorithm>
#include <cstring>
#include <new>
#include <optional>

#include "client/ClientCall.h"
#include "client/Objects.h"
#include "core/Text.h"

namespace wb {
namespace {

/// In front of the name in an item's bytes: distinguishes the client's own items from those of
/// other folders.
constexpr char mark[] = {'T', 'V', 'F', '1'};
constexpr size_t headSize = sizeof(USHORT) + sizeof(mark);

/// An item id list with one item, the file of that name in its folder; the caller's.
LPITEMIDLIST makeItemId(const std::wstring& fileName) {
  const size_t nameSize = fileName.size() * sizeof(wchar_t);
  const auto size = static_cast<USHORT>(headSize + nameSize);
  // A list ends with an item of size 0.
  const auto bytes = static_cast<char*>(CoTaskMemAlloc(size + sizeof(USHORT)));
  if (!bytes) throw std::bad_alloc();
  std::memcpy(bytes, &size, sizeof(size));
  std::memcpy(bytes + sizeof(size), mark, sizeof(mark));
  std::copy_n(reinterpret_cast<const char*>(fileName.data()), nameSize, bytes + headSize);
  std::memset(bytes + size, 0, sizeof(USHORT));
  return reinterpret_cast<LPITEMIDLIST>(bytes);
}

/// The file name of an item id list that makeItemId made; nothing for any other list.
std::optional<std::wstring> fileNameOf(LPCITEMIDLIST item) {
  if (!item) return std::nullopt;
  const auto bytes = reinterpret_cast<const char*>(item);
  USHORT size = 0;
  std::memcpy(&size, bytes, sizeof(size));
  const bool isOwn = size > headSize && (size - headSize) % sizeof(wchar_t) == 0 &&
                     std::memcmp(bytes + sizeof(size), mark, sizeof(mark)) == 0;
  if (!isOwn) return std::nullopt;
  std::wstring name((size - headSize) / sizeof(wchar_t), L'\0');
  std::memcpy(name.data(), bytes + headSize, size - headSize);
  return name;
}

std::wstring describeItem(LPCITEMIDLIST item) {
  return fileNameOf(item).value_or(L"no item of the client");
}

/// The path of a file of the folder that the vault holds and lets the user see.
std::wstring vaultPath(const std::wstring& folder, LPCITEMIDLIST item) {
  const auto name = fileNameOf(item);
  if (!name) throw ClientFailure(E_INVALIDARG);
  std::wstring path = folder + L"\\" + *name;
  if (storedFile(path).denied) throw ClientFailure(E_QVT_PERMISSION_DENIED);
  return path;
}

struct LegacyFolderPart : Dual<VaultFolderLegacy, VaultItem> {
  STDMETHODIMP id(LONG* result) override {
    return call().result(result, [&] { return state.id; });
  }
};

struct FolderActionsPart : Dual<VaultFolderActions, VaultItem> {
  STDMETHODIMP getVersion(LONG reserved, PCUIDLIST_RELATIVE item, LONG version) override {
    return call()
        .with(L"reserved", reserved)
        .with(L"item", describeItem(item).c_str())
        .with(L"version", version)
        .run([&] {
          const std::wstring file = vaultPath(state.path, item);
          // The store takes 0 for the latest version; here a version has to be named.
          if (version < 1) throw ClientFailure(E_INVALIDARG);
          store().fetch(file, version);
        });
  }
};

/// The folder in the shell: as much of it as leads from a file's name to the file's verbs. What a
/// folder view would need besides returns E_NOTIMPL.
struct ShellFolderPart : Plain<IShellFolder, VaultItem> {
  STDMETHODIMP ParseDisplayName(HWND, IBindCtx*, LPWSTR name, ULONG* eaten, LPITEMIDLIST* item,
                                ULONG* attributes) override {
    return call().with(L"name", name).result(item, [&] {
      const std::wstring text = name ? name : L"";
      const bool isBareName = !text.empty() && text.find_first_of(L"\\/:") == std::wstring::npos;
      const StoredFile* file = isBareName ? store().find(state.path + L"\\" + text) : nullptr;
      if (!file || file->denied) throw ClientFailure(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
      const LPITEMIDLIST made = makeItemId(file->name());
      if (eaten) *eaten = static_cast<ULONG>(text.size());
      if (attributes) *attributes &= SFGAO_FILESYSTEM | SFGAO_STREAM;
      return made;
    });
  }

  STDMETHODIMP GetUIObjectOf(HWND, UINT count, LPCITEMIDLIST* items, REFIID iid, UINT*,
                             void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    const bool isOne = count == 1 && items;
    return call().with(L"item", isOne ? describeItem(items[0]).c_str() : L"").run([&] {
      if (!isOne) throw ClientFailure(E_INVALIDARG);
      if (iid != IID_IContextMenu) throw ClientFailure(E_NOINTERFACE);
      *out = fileMenu(vaultPath(state.path, items[0])).release();
    });
  }

  STDMETHODIMP EnumObjects(HWND, DWORD, IEnumIDList**) override { return E_NOTIMPL; }
  STDMETHODIMP BindToObject(LPCITEMIDLIST, IBindCtx*, REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP BindToStorage(LPCITEMIDLIST, IBindCtx*, REFIID, void**) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP CompareIDs(LPARAM, LPCITEMIDLIST, LPCITEMIDLIST) override { return E_NOTIMPL; }
  STDMETHODIMP CreateViewObject(HWND, REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP GetAttributesOf(UINT, LPCITEMIDLIST*, ULONG*) override { return E_NOTIMPL; }
  STDMETHODIMP GetDisplayNameOf(LPCITEMIDLIST, DWORD, STRRET*) override { return E_NOTIMPL; }
  STDMETHODIMP SetNameOf(HWND, LPCITEMIDLIST, LPCOLESTR, DWORD, LPITEMIDLIST*) override {
    return E_NOTIMPL;
  }
};

}  // namespace

template <class Folder>
Owned<Folder> folderObject(const std::wstring& path) {
  VaultItem item;
  item.path = path;
  while (!item.path.empty() && item.path.back() == L'\\') item.path.pop_back();
  const StoredVault* vault = store().vaultOf(item.path);
  if (!vault) throw ClientFailure(E_QVT_FOLDER_NOT_FOUND);
  item.id = store().folderId(*vault, Store::thisComputer(), item.path);
  const bool isRoot = sameName(vault->root, item.path);
  item.name = isRoot ? vault->name : item.path.substr(item.path.rfind(L'\\') + 1);
  return make<Folder, Dual<VaultFolder, VaultItem>, NamedPart, LegacyFolderPart, FolderActionsPart,
              ShellFolderPart>(namedLabel(L"folder", item.name), item);
}

template Owned<VaultFolder> folderObject(const std::wstring& path);
template Owned<VaultFolderLegacy> folderObject(const std::wstring& path);

long folderIdOf(VaultFolderLegacy* folder) {
  const auto part = dynamic_cast<LegacyFolderPart*>(folder);
  if (!part) throw ClientFailure(E_INVALIDARG);
  return part->state.id;
}

}  // namespace wb
