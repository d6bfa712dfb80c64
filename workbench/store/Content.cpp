// What the store keeps on the disk: store.json, and the archive of the versions' contents.

#include <algorithm>
#include <set>

#include "core/ResultCodes.h"
#include "core/Text.h"
#include "store/Store.h"

namespace wb {

namespace {

std::wstring archiveName(long fileId, long version) {
  return std::to_wstring(fileId) + L"-" + std::to_wstring(version) + L".bin";
}

/// Names of the contents that the vaults' files refer to.
std::set<std::wstring> contentsIn(const std::vector<StoredVault>& vaults) {
  std::set<std::wstring> names;
  for (const StoredVault& vault : vaults) {
    for (const auto& [path, file] : vault.files) {
      for (const StoredVersion& version : file.versions) {
        if (version.archive != archiveName(file.id, version.number) ||
            !names.insert(version.archive).second) {
          throw std::runtime_error(toUtf8(path) + " refers to a content that isn't its own");
        }
      }
    }
  }
  return names;
}

std::set<std::wstring> filesIn(const std::filesystem::path& folder) {
  std::set<std::wstring> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.insert(entry.path().filename().wstring());
  }
  return names;
}

/// The folder below a view's root in which a new local file is written before it is moved.
std::filesystem::path incomingFolder(const StoredVault& vault) {
  return vault.root + L"\\Tessaro incoming";
}

}  // namespace

void Store::open(const std::filesystem::path& inFolder) {
  close();
  Store opened;
  opened.folder = inFolder;
  makeFolder(opened.archiveFolder());
  opened.lock = std::make_unique<FileHandle>(inFolder / L"store.lock", GENERIC_READ | GENERIC_WRITE,
                                             0, OPEN_ALWAYS);
  opened.read();
  opened.removeLeftovers();
  *this = std::move(opened);
}

void Store::read() {
  // Sharing violations and the like say nothing about the content, so they are passed on unchanged.
  const bool begun = writeTime(indexFile()) != 0;
  const std::string text = begun ? readFile(indexFile()) : std::string();
  try {
    const std::set<std::wstring> archived = filesIn(archiveFolder());
    if (begun) {
      vaults = vaultsFromJson(text);
    } else if (!archived.empty()) {
      throw std::runtime_error("it is missing, but the archive holds contents");
    }
    for (const std::wstring& name : contentsIn(vaults)) {
      if (archived.count(name) == 0) {
        throw std::runtime_error("the archive's file " + toUtf8(name) + " is missing");
      }
    }
  } catch (const std::exception& failure) {
    throw StoreError(E_QVT_NOT_INITIALIZED, indexFile().wstring() +
                                                L" is damaged, and the store was left as it is: " +
                                                fromUtf8(failure.what()));
  }
}

/// An interrupted write leaves a content that nothing refers to, or a file that wasn't moved yet.
/// One that can't be removed is in nobody's way: it is written over when its name is due.
void Store::removeLeftovers() const {
  std::error_code ignored;
  std::filesystem::remove(indexFile().wstring() + L".new", ignored);
  const std::set<std::wstring> known = contentsIn(vaults);
  for (const std::wstring& name : filesIn(archiveFolder())) {
    if (known.count(name) == 0) std::filesystem::remove(archiveFolder() / name, ignored);
  }
  for (const StoredVault& vault : vaults) {
    std::filesystem::remove_all(incomingFolder(vault), ignored);
  }
}

void Store::write() const { replaceFile(indexFile(), vaultsToJson(vaults)); }

/// Writes store.json, or leaves that to the end of inOneWrite. What can't be written is undone.
void Store::save(const std::function<void()>& undo) {
  try {
    if (folder.empty()) throw StoreError(E_QVT_NOT_INITIALIZED, L"the store isn't open");
    if (!isPostponed) write();
  } catch (...) {
    undo();
    throw;
  }
}

void Store::inOneWrite(const std::function<void()>& changes) {
  isPostponed = true;
  const auto end = [this] {
    isPostponed = false;
    write();
  };
  try {
    changes();
  } catch (...) {
    end();
    throw;
  }
  end();
}

void Store::archive(StoredFile& file, const std::string& bytes, const std::wstring& user,
                    const std::wstring& comment) const {
  StoredVersion version;
  version.number = file.versions.empty() ? 1 : file.latest().number + 1;
  version.user = user;
  version.comment = comment;
  version.date = currentTime();
  if (!file.versions.empty()) version.date = std::max(version.date, file.latest().date + dateGrain);
  version.archive = archiveName(file.id, version.number);
  replaceFile(archiveFolder() / version.archive, bytes);
  file.versions.push_back(std::move(version));
}

void Store::writeLocal(const std::wstring& path, StoredFile& file, const StoredVersion& version,
                       bool readOnly) {
  replaceLocalFile(plainPath(path), incomingFolder(vaultFor(path)),
                   readFile(archiveFolder() / version.archive), version.date, readOnly);
  file.localVersions[folderIdOf(path)] = version.number;
}

}  // namespace wb
