#include "client/FolderObject.h"

#include "client/ClientCall.h"
#include "client/FileMenu.h"
#include "client/ItemId.h"
#include "client/Results.h"
#include "core/Text.h"
#include "store/Store.h"

namespace wb {
namespace {

const HRESULT shellFileNotFound = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);

/// The path of a file of the folder that the vault holds and lets the user see.
std::wstring vaultPath(const std::wstring& folder, LPCITEMIDLIST item) {
  const auto name = fileNameOf(item);
  if (!name) throw ClientFailure(E_INVALIDARG);
  std::wstring path = folder + L"\\" + *name;
  const StoredFile* file = store().find(path);
  if (!file) throw ClientFailure(E_QVT_FILE_NOT_FOUND);
  if (file->denied) throw ClientFailure(E_QVT_PERMISSION_DENIED);
  return path;
}

std::wstring describeItem(LPCITEMIDLIST item) {
  return fileNameOf(item).value_or(L"no item of the client");
}

}  // namespace

STDMETHODIMP LegacyFolderPart::id(LONG* result) {
  return ClientCall(L"VaultFolderLegacy.id").out(result).runVoid([&] { *result = folderId; });
}

STDMETHODIMP FolderActionsPart::getVersion(LONG reserved, PCUIDLIST_RELATIVE item, LONG version) {
  return ClientCall(L"VaultFolderActions.getVersion")
      .with(L"reserved", reserved)
      .with(L"item", describeItem(item).c_str())
      .with(L"version", version)
      .runVoid([&] {
        const std::wstring file = vaultPath(path, item);
        // The store takes 0 for the latest version; here a version has to be named.
        if (version < 1) throw ClientFailure(E_INVALIDARG);
        store().fetch(file, version);
      });
}

STDMETHODIMP ShellFolderPart::ParseDisplayName(HWND, IBindCtx*, LPWSTR name, ULONG* eaten,
                                               LPITEMIDLIST* item, ULONG* attributes) {
  return ClientCall(L"IShellFolder.ParseDisplayName").with(L"name", name).out(item).runVoid([&] {
    const std::wstring text = name ? name : L"";
    const bool isBareName = !text.empty() && text.find_first_of(L"\\/:") == std::wstring::npos;
    const StoredFile* file = isBareName ? store().find(path + L"\\" + text) : nullptr;
    if (!file || file->denied) throw ClientFailure(shellFileNotFound);
    *item = makeItemId(file->name());
    if (eaten) *eaten = static_cast<ULONG>(text.size());
    if (attributes) *attributes &= SFGAO_FILESYSTEM | SFGAO_STREAM;
  });
}

STDMETHODIMP ShellFolderPart::GetUIObjectOf(HWND, UINT count, LPCITEMIDLIST* items, REFIID iid,
                                            UINT*, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  const bool one = count == 1 && items;
  return ClientCall(L"IShellFolder.GetUIObjectOf")
      .with(L"item", one ? describeItem(items[0]).c_str() : L"")
      .runVoid([&] {
        if (!one) throw ClientFailure(E_INVALIDARG);
        if (iid != IID_IContextMenu) throw ClientFailure(E_NOINTERFACE);
        *out = fileMenu(vaultPath(path, items[0])).release();
      });
}

FolderObject::FolderObject(const FolderState& state)
    : ComObject(namedLabel(L"folder", state.name), state) {}

FolderState folderOf(const std::wstring& path, bool isFolder) {
  FolderState state;
  state.path = isFolder ? path : path.substr(0, path.rfind(L'\\'));
  while (!state.path.empty() && state.path.back() == L'\\') state.path.pop_back();
  const StoredVault* vault = store().vaultOf(state.path);
  if (!vault) throw ClientFailure(E_QVT_FOLDER_NOT_FOUND);
  const bool isRoot = sameName(vault->root, state.path);
  state.id = store().folderId(*vault, Store::thisComputer(), state.path);
  state.name = isRoot ? vault->name : state.path.substr(state.path.rfind(L'\\') + 1);
  return state;
}

long folderIdOf(VaultFolderLegacy* folder) {
  const auto part = dynamic_cast<LegacyFolderPart*>(folder);
  if (!part) throw ClientFailure(E_INVALIDARG);
  return part->folderId;
}

}  // namespace wb
