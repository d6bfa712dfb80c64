#pragma once

#include <shlobj.h>

#include <string>

#include "client/NamedObject.h"
#include "TessaroClient.h"

namespace wb {

struct FolderState : NamedState {
  std::wstring path;  ///< of the local folder, without a trailing backslash
};

/// VaultFolder has no operations of its own.
class FolderPart : public Dual<VaultFolder> {
 public:
  explicit FolderPart(const FolderState&) {}
};

/// A folder, older generation.
class LegacyFolderPart : public Dual<VaultFolderLegacy> {
 public:
  explicit LegacyFolderPart(const FolderState& state) : folderId(state.id) {}

  STDMETHODIMP id(LONG* result) override;

  const long folderId;
};

class FolderActionsPart : public Dual<VaultFolderActions> {
 public:
  explicit FolderActionsPart(const FolderState& state) : path(state.path) {}

  STDMETHODIMP getVersion(LONG reserved, PCUIDLIST_RELATIVE item, LONG version) override;

 private:
  std::wstring path;
};

/// The folder in the shell: as much of it as leads from a file's name to the file's verbs. What a
/// folder view would need besides answers E_NOTIMPL.
class ShellFolderPart : public Plain<IShellFolder> {
 public:
  explicit ShellFolderPart(const FolderState& state) : path(state.path) {}

  STDMETHODIMP ParseDisplayName(HWND owner, IBindCtx* context, LPWSTR name, ULONG* eaten,
                                LPITEMIDLIST* item, ULONG* attributes) override;
  STDMETHODIMP GetUIObjectOf(HWND owner, UINT count, LPCITEMIDLIST* items, REFIID iid,
                             UINT* reserved, void** out) override;

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

 private:
  std::wstring path;
};

class FolderObject final : public ComObject<FolderPart, NamedPart, LegacyFolderPart,
                                            FolderActionsPart, ShellFolderPart> {
 public:
  explicit FolderObject(const FolderState& state);
};

/// What is known of the local folder that a path lies in, or that it is if `isFolder`.
FolderState folderOf(const std::wstring& path, bool isFolder);

/// That folder as an object.
template <class Interface>
Owned<Interface> folderObject(const std::wstring& path, bool isFolder) {
  return make<FolderObject, Interface>(folderOf(path, isFolder));
}

/// The id of a folder object. Raises ClientFailure for an object that isn't the client's.
long folderIdOf(VaultFolderLegacy* folder);

}  // namespace wb
