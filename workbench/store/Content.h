#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "store/Files.h"
#include "store/Records.h"

namespace wb {

/// What a store keeps: its vaults in memory, and the folder with store.json and the archive. An
/// open store holds store.lock, so no other process writes in its folder meanwhile.
class StoreContent {
 public:
  /// A store that isn't open.
  StoreContent() = default;
  /// Reads a folder's store, or begins one. Raises StoreError for a damaged one, and for one that
  /// another process has open; both are left as they are.
  explicit StoreContent(const std::filesystem::path& folder);

  std::vector<StoredVault> vaults;

  /// Writes store.json, or leaves that to the end of the `together` that runs. Raises StoreError,
  /// E_QVT_NOT_INITIALIZED if the store isn't open.
  void save();
  void together(const std::function<void()>& changes);

  /// Adds a version to `file`: its content is in the archive, flushed, when this returns.
  void archive(StoredFile& file, const std::string& bytes, const std::wstring& user,
               const std::wstring& comment) const;
  /// A version's content.
  std::string contentOf(const StoredVersion& version) const;

  long nextFileId() const;

 private:
  std::filesystem::path indexFile() const { return folder / L"store.json"; }
  std::filesystem::path archiveFolder() const { return folder / L"archive"; }
  void read();
  void write() const;
  void removeLeftovers() const;

  std::filesystem::path folder;
  std::unique_ptr<FileHandle> lock;
  bool postponed = false;
};

/// The folder below a view's root in which a new local file is written before it is moved.
std::filesystem::path incomingFolder(const StoredVault& vault);

}  // namespace wb
