#include "store/Store.h"

#include <objbase.h>

#include "core/ResultCodes.h"
#include "core/SessionState.h"
#include "core/Transcript.h"

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
    throw StoreError(E_UNEXPECTED, L"Windows returns no identifier");
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

std::wstring versionLine(const StoredVersion& version) {
  return L"version " + std::to_wstring(version.number) + L" by " + version.user +
         (version.comment.empty() ? L"" : L": " + version.comment);
}

std::wstring holderLine(const StoredFile& file) {
  if (!file.holder) return L"not checked out";
  const bool here = sameName(file.holder->computer, Store::thisComputer());
  return L"checked out by " + file.holder->user + L" in " + file.holder->folder +
         (here ? L"" : L" on " + file.holder->computer);
}

void describeCard(const CardVariable& variable, std::vector<std::wstring>& lines) {
  for (const auto& [configuration, value] : variable.values) {
    lines.push_back(
        L"card " + variable.name + L" in " + wb::quoted(configuration) + L" = " +
        (value.type == L"text" ? wb::quoted(value.text) : value.type + L" " + value.text));
  }
  for (const CardMapping& mapping : variable.mappings) {
    lines.push_back(L"card " + variable.name + L" goes to " + mapping.block + L"." + mapping.tag);
  }
}

}  // namespace

Store& store() { return sessionPart<Store>(); }

void Store::createVault(const std::wstring& name, const std::wstring& root) {
  // The name is also that of a key of the registry.
  require(!name.empty() && name.find_first_of(L"\\/:*?\"<>|") == std::wstring::npos,
          E_QVT_INVALID_VAULT_NAME, L"a vault can't be called \"" + name + L"\"");
  require(!vaultNamed(name), E_QVT_NAME_ALREADY_EXISTS, L"there is a vault " + name + L" already");
  require(isFullPath(plainPath(root)), E_QVT_INVALID_NAME,
          L"\"" + root + L"\" is no full path of a folder");
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
  vaults.push_back(vault);
  save([&] { vaults.pop_back(); });
}

const StoredVault* Store::vaultOf(std::wstring_view path) const {
  const std::wstring full = plainPath(path);
  const StoredVault* found = nullptr;
  for (const StoredVault& vault : vaults) {
    if (!liesIn(full, vault.root)) continue;
    if (!found || vault.root.size() > found->root.size()) found = &vault;
  }
  return found;
}

const StoredVault* Store::vaultNamed(std::wstring_view name) const {
  for (const StoredVault& vault : vaults) {
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
  const long id = entry->second;
  if (isNew) save([&, added = entry] { ids.erase(added); });
  return id;
}

long Store::folderIdOf(const std::wstring& path) {
  return folderId(vaultFor(path), thisComputer(), folderOf(plainPath(path)));
}

std::wstring Store::thisComputer() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1];
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  return GetComputerNameW(name, &size) ? std::wstring(name, size) : std::wstring();
}

std::vector<std::wstring> Store::describe(const std::wstring& path) const {
  const StoredFile* file = find(path);
  if (!file) return {path + L" isn't in the vault"};
  std::vector<std::wstring> lines;
  lines.reserve(file->versions.size());
  for (const StoredVersion& version : file->versions) lines.push_back(versionLine(version));
  lines.push_back(holderLine(*file));
  for (const auto& [key, id] : vaultOf(path)->folderIds) {
    const std::wstring folder = key.substr(key.find(L'|') + 1);
    const long local = localVersion(*file, id);
    if (local != 0) lines.push_back(L"local version " + std::to_wstring(local) + L" in " + folder);
  }
  lines.push_back(L"state " + file->state);
  if (file->exempt) lines.push_back(L"exempt from the date comparison");
  if (file->denied) lines.push_back(L"denied");
  for (const CardVariable& variable : file->card) describeCard(variable, lines);
  return lines;
}

}  // namespace wb
