// What is done to the files of a vault.

#include <algorithm>

#include "core/ResultCodes.h"
#include "store/Store.h"

namespace wb {

StoredVault& Store::vaultFor(const std::wstring& path) {
  const StoredVault* vault = vaultOf(path);
  if (!vault) throw StoreError(E_QVT_KEY_NOT_FOUND, path + L" lies in no vault");
  return const_cast<StoredVault&>(*vault);
}

StoredFile& Store::fileFor(const std::wstring& path) {
  vaultFor(path);
  const StoredFile* file = find(path);
  if (!file) throw StoreError(E_QVT_FILE_NOT_FOUND, path + L" isn't in the vault");
  return const_cast<StoredFile&>(*file);
}

/// Changes a file's record as a whole: what `step` does to it is on the disk when this returns, and
/// undone if it can't be written.
void Store::change(const std::wstring& path, const std::function<void(StoredFile&)>& step) {
  StoredFile changed = fileFor(path);
  step(changed);
  StoredFile& file = fileFor(path);
  std::swap(file, changed);
  save([&] { std::swap(file, changed); });
}

bool Store::isHeldHere(const std::wstring& path, const StoredFile& file) {
  return file.holder && isHeldByUsHere(file) && file.holder->folderId == folderIdOf(path);
}

bool Store::isHeldByUsHere(const StoredFile& file) {
  return file.holder && sameName(file.holder->user, thisUser()) &&
         sameName(file.holder->computer, thisComputer());
}

void Store::requireHeldHere(const std::wstring& path) {
  const StoredFile& file = fileFor(path);
  require(file.holder.has_value(), E_QVT_FILE_NOT_LOCKED_BY_YOU, path + L" isn't checked out");
  const Holder holder = file.holder.value_or(Holder{});
  require(sameName(holder.user, thisUser()), E_QVT_LOCKED_BY_ANOTHER_USER,
          path + L" isn't checked out by you");
  require(sameName(holder.computer, thisComputer()), E_QVT_LOCKED_ON_OTHER_COMPUTER,
          path + L" is checked out elsewhere");
  require(isHeldHere(path, file), E_QVT_LOCKED_IN_OTHER_FOLDER,
          path + L" is checked out in another folder");
}

namespace {

void requireAccess(const std::wstring& path, const StoredFile& file) {
  if (file.denied) throw StoreError(E_QVT_PERMISSION_DENIED, path + L" is denied");
}

[[noreturn]] void raiseHeld(const std::wstring& path, const Holder& holder) {
  const bool byUs = sameName(holder.user, Store::thisUser());
  const bool here = sameName(holder.computer, Store::thisComputer());
  throw StoreError(!byUs   ? E_QVT_LOCKED_BY_ANOTHER_USER
                   : !here ? E_QVT_LOCKED_ON_OTHER_COMPUTER
                           : E_QVT_FILE_IS_LOCKED,
                   path + L" is checked out by " + holder.user);
}

const StoredVersion& versionOf(const std::wstring& path, const StoredFile& file, long number) {
  if (number == 0) return file.latest();
  for (const StoredVersion& version : file.versions) {
    if (version.number == number) return version;
  }
  throw StoreError(E_QVT_INVALID_REVISION_NUMBER,
                   path + L" has no version " + std::to_wstring(number));
}

CardVariable& variableOf(StoredFile& file, const std::wstring& name) {
  for (CardVariable& variable : file.card) {
    if (sameName(variable.name, name)) return variable;
  }
  file.card.push_back({name, {}, {}});
  return file.card.back();
}

}  // namespace

void Store::add(const std::wstring& path, const std::filesystem::path& from,
                const std::wstring& user, const std::wstring& comment) {
  const std::wstring local = plainPath(path);
  StoredVault& vault = vaultFor(local);
  if (find(local)) throw StoreError(E_QVT_NAME_ALREADY_EXISTS, local + L" is in the vault already");
  const std::string bytes = readFile(from.empty() ? std::filesystem::path(local) : from);
  if (writeTime(local) != 0 && readFile(local) != bytes) {
    throw StoreError(E_QVT_NAME_ALREADY_EXISTS, L"there is another local file " + local);
  }
  StoredFile file;
  for (const StoredVault& other : vaults) {
    for (const auto& [otherPath, stored] : other.files) file.id = std::max(file.id, stored.id);
  }
  ++file.id;
  file.path = local.substr(vault.root.size());
  archive(file, bytes, user, comment);
  writeLocal(local, file, file.latest(), true);
  const auto entry = vault.files.emplace(file.path, file).first;
  save([&] { vault.files.erase(entry); });
}

void Store::addVersion(const std::wstring& path, const std::filesystem::path& from,
                       const std::wstring& user, const std::wstring& comment) {
  change(path, [&](StoredFile& file) { archive(file, readFile(from), user, comment); });
}

bool Store::isLocalCopyLatest(const std::wstring& path, const StoredFile& file) {
  return localVersion(file, folderIdOf(path)) == file.latest().number &&
         writeTime(plainPath(path)) == file.latest().date;
}

void Store::checkOut(const std::wstring& path) {
  const std::wstring local = plainPath(path);
  const auto step = [&](StoredFile& file) {
    requireAccess(local, file);
    if (file.holder) raiseHeld(local, *file.holder);
    if (isLocalCopyLatest(local, file)) {
      setReadOnly(local, false);
    } else {
      writeLocal(local, file, file.latest(), false);
    }
    file.holder = Holder{thisUser(), thisComputer(), folderOf(local), folderIdOf(local)};
  };
  const bool wasReadOnly = isReadOnly(local);
  try {
    change(local, step);
  } catch (const StoreError&) {
    // A copy that stayed writable would take changes that no check-in brings back.
    if (wasReadOnly && !isReadOnly(local)) setReadOnly(local, true);
    throw;
  }
}

void Store::checkOutFor(const std::wstring& path, const std::wstring& user,
                        const std::wstring& computer, const std::wstring& folder) {
  change(path, [&](StoredFile& file) {
    if (file.holder) raiseHeld(path, *file.holder);
    const std::wstring local = plainFolder(folder);
    file.holder = Holder{user, computer, local, folderId(vaultFor(path), computer, local)};
  });
}

void Store::undoCheckOut(const std::wstring& path) {
  change(path, [&](StoredFile& file) {
    if (!file.holder) throw StoreError(E_QVT_FILE_NOT_LOCKED_BY_YOU, path + L" isn't checked out");
    if (isHeldHere(path, file)) writeLocal(path, file, file.latest(), true);
    file.holder.reset();
  });
}

void Store::checkIn(const std::wstring& path, const std::wstring& comment, bool keepCheckedOut) {
  StoredFile& file = fileFor(path);
  requireAccess(path, file);
  requireHeldHere(path);
  // Held open to the end, so that the date and the attribute are sure to follow the check-in.
  FileHandle local(plainPath(path), GENERIC_READ | FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ,
                   OPEN_EXISTING);
  const long here = folderIdOf(path);
  change(path, [&](StoredFile& changed) {
    archive(changed, local.read(), thisUser(), comment);
    changed.localVersions[here] = changed.latest().number;
    if (!keepCheckedOut) changed.holder.reset();
  });
  local.setDateAndAttribute(file.latest().date, !keepCheckedOut);
}

void Store::fetch(const std::wstring& path, long number) {
  change(path, [&](StoredFile& file) {
    requireAccess(path, file);
    const StoredVersion version = versionOf(path, file, number);
    writeLocal(path, file, version, !isHeldHere(path, file));
  });
}

void Store::setDate(const std::wstring& path, const FILETIME& date) {
  const std::wstring local = plainPath(path);
  change(local, [&](StoredFile& file) {
    const bool dateLocalCopy = isLocalCopyLatest(local, file);
    StoredVersion& latest = file.versions.back();
    latest.date = whole(date);
    if (!dateLocalCopy) return;
    FileHandle(local, GENERIC_READ | FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ, OPEN_EXISTING)
        .setDateAndAttribute(latest.date, isReadOnly(local));
  });
}

void Store::setCardValue(const std::wstring& path, const std::wstring& variable,
                         const std::wstring& configuration, const CardValue& value) {
  change(path, [&](StoredFile& file) { variableOf(file, variable).values[configuration] = value; });
}

void Store::addMapping(const std::wstring& path, const std::wstring& variable,
                       const CardMapping& to) {
  change(path, [&](StoredFile& file) { variableOf(file, variable).mappings.push_back(to); });
}

}  // namespace wb
