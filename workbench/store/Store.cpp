#include "store/Store.h"

#include <objbase.h>

#include "core/ResultCodes.h"
#include "core/SessionState.h"
#include "core/Text.h"
#include "store/Content.h"
#include "store/Paths.h"

namespace wb {

namespace {

bool liesIn(std::wstring_view path, const std::wstring& root) {
  return path.size() >= root.size() && sameName(path.substr(0, root.size()), root) &&
         (path.size() == root.size() || path[root.size()] == L'\\');
}

std::wstring newViewId() {
  GUID id;
  wchar_t text[39];
  if (FAILED(CoCreateGuid(&id)) || !StringFromGUID2(id, text, 39)) {
    throw StoreError(E_UNEXPECTED, L"Windows gives no identifier");
  }
  return text;
}

void writeViewId(const StoredVault& vault) {
  const std::wstring settings = vault.root + L"\\desktop.ini";
  if (WritePrivateProfileStringW(L"Tessaro", L"ViewID", vault.viewId.c_str(), settings.c_str())) {
    return;
  }
  throw StoreError(HRESULT_FROM_WIN32(GetLastError()), settings + L" can't be written");
}

}  // namespace

StoreError::StoreError(HRESULT code, const std::wstring& what)
    : std::runtime_error(toUtf8(what)), result(code) {}

Store::Store() : content(std::make_unique<StoreContent>()) {}
Store::~Store() = default;

Store& store() { return sessionPart<Store>(); }

void Store::open(const std::filesystem::path& folder) {
  close();
  content = std::make_unique<StoreContent>(folder);
}

void Store::close() { content = std::make_unique<StoreContent>(); }

void Store::createVault(const std::wstring& name, const std::wstring& root) {
  // The name is also that of a key of the registry.
  if (name.empty() || name.find_first_of(L"\\/:*?\"<>|") != std::wstring::npos) {
    throw StoreError(E_QVT_INVALID_VAULT_NAME, L"a vault can't be called \"" + name + L"\"");
  }
  if (vaultNamed(name)) {
    throw StoreError(E_QVT_NAME_ALREADY_EXISTS, L"there is a vault " + name + L" already");
  }
  if (!isFullPath(plainPath(root))) {
    throw StoreError(E_QVT_INVALID_NAME, L"\"" + root + L"\" is no full path of a folder");
  }
  StoredVault vault;
  vault.name = name;
  vault.root = plainFolder(root);
  vault.viewId = newViewId();
  vault.folderIds[thisComputer() + L"|" + vault.root] = StoredVault::rootFolderId;
  const StoredVault* other = vaultOf(vault.root);
  if (other && sameName(other->root, vault.root)) {
    throw StoreError(E_QVT_NAME_ALREADY_EXISTS,
                     vault.root + L" is the view of the vault " + other->name);
  }
  makeFolder(vault.root + L"\\");
  writeViewId(vault);
  content->vaults.push_back(vault);
  try {
    content->save();
  } catch (...) {
    content->vaults.pop_back();
    throw;
  }
}

void Store::together(const std::function<void()>& changes) { content->together(changes); }

const StoredVault* Store::vaultOf(std::wstring_view path) const {
  const std::wstring full = plainPath(path);
  const StoredVault* found = nullptr;
  for (const StoredVault& vault : content->vaults) {
    if (!liesIn(full, vault.root)) continue;
    if (!found || vault.root.size() > found->root.size()) found = &vault;
  }
  return found;
}

const StoredVault* Store::vaultNamed(std::wstring_view name) const {
  for (const StoredVault& vault : content->vaults) {
    if (sameName(vault.name, name)) return &vault;
  }
  return nullptr;
}

const StoredFile* Store::find(std::wstring_view path) const {
  const StoredVault* vault = vaultOf(path);
  if (!vault) return nullptr;
  const auto file = vault->files.find(plainPath(path).substr(vault->root.size()));
  return file == vault->files.end() ? nullptr : &file->second;
}

long Store::localVersion(const StoredFile& file, long folderId) const {
  const auto local = file.localVersions.find(folderId);
  return local == file.localVersions.end() ? 0 : local->second;
}

long Store::folderId(const StoredVault& vault, const std::wstring& computer,
                     const std::wstring& folder) {
  auto& ids = vaultFor(vault.root).folderIds;
  const std::wstring key = computer + L"|" + plainFolder(folder);
  const auto [entry, isNew] =
      ids.emplace(key, static_cast<long>(ids.size()) + StoredVault::rootFolderId);
  if (!isNew) return entry->second;
  try {
    content->save();
  } catch (...) {
    ids.erase(entry);
    throw;
  }
  return entry->second;
}

long Store::folderIdOf(const std::wstring& path) {
  return folderId(vaultFor(path), thisComputer(), folderOf(plainPath(path)));
}

std::wstring Store::localPath(const StoredVault& vault, const StoredFile& file) {
  return vault.root + file.path;
}

std::wstring Store::thisComputer() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1];
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  return GetComputerNameW(name, &size) ? std::wstring(name, size) : std::wstring();
}

}  // namespace wb
