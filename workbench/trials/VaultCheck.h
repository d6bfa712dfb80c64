#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>

#include "store/Store.h"

namespace wb {

/// Something that doesn't hold although it has to, whatever was done.
struct CheckFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What nobody may lose in a vault: its files, their versions and contents, and the local copies.
/// Each check compares them with what the last one found.
class VaultCheck {
 public:
  /// @param storeFolder the store's; it is the current session's while check() runs
  VaultCheck(std::wstring vault, const std::filesystem::path& storeFolder)
      : vaultName(std::move(vault)), archive(storeFolder / L"archive") {}

  /// What may have happened to the local files since the last check.
  struct Allowed {
    /// The user's saved content may have been replaced by the vault's.
    bool replacing = false;
    /// The name of the only file into which the user may have saved something new; without one he
    /// may have saved any.
    std::optional<std::wstring> savedFile;
  };

  /// @param thorough also reads the archived contents that were read before
  /// @throws CheckFailure for the first thing that is lost
  void check(bool thorough, const Allowed& allowed);

 private:
  void checkVersions(const std::wstring& path, const StoredFile& file, bool thorough);
  void checkLocalFile(const std::wstring& path, const StoredFile& file, const Allowed& allowed);
  bool isStored(const StoredFile& file, const std::string& content) const;

  std::wstring vaultName;
  std::filesystem::path archive;
  std::map<std::wstring, size_t> versions;          ///< by local path
  std::map<std::wstring, std::string> contents;     ///< by the archive's name for it
  std::map<std::wstring, std::string> localCopies;  ///< by local path
};

}  // namespace wb
