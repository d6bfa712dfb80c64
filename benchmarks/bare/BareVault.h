#pragma once

#include "vault/VaultInterfaces.h"

namespace bare {

/// Raises a call's failure.
/// @throws _com_error
inline void need(HRESULT result) {
  if (FAILED(result)) _com_issue_error(result);
}

/// The handle as the client takes it.
long parentWindow();

/// A file of the vault, found with the calls that every routine needs for it.
class VaultEntry {
 public:
  /// @throws _com_error if the file isn't found
  explicit VaultEntry(const wchar_t* path);

  bool isCheckedOut() const;
  /// Whether this computer holds the file in this folder.
  bool isHeldHere() const;
  long localVersion() const;
  long latestVersion() const;
  void checkOut() const;

 private:
  long folderId() const;

  tessaro::VaultClientPtr client;
  tessaro::VaultFolderPtr folder;
  tessaro::VaultFilePtr file;
};

}  // namespace bare
