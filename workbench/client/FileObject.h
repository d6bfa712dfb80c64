#pragma once

#include <string>

#include "client/NamedObject.h"
#include "store/Store.h"
#include "TessaroClient.h"

namespace wb {

/// What the objects of one file know of it; all else is asked of the store at each call, so an
/// object tells the vault's truth for as long as it lives.
struct FileState : NamedState {
  std::wstring path;  ///< in the local view

  static FileState of(const StoredVault& vault, const StoredFile& file);

  /// The file as it is now. Raises ClientFailure with E_QVT_FILE_NOT_FOUND if it is gone.
  const StoredFile& file() const;
  /// The id of its local folder.
  long folderId() const { return store().folderIdOf(path); }
  /// Whether this user holds it on this computer in that local folder.
  bool isHeldHere(long inFolder) const;
  /// Checks it out to that local folder. Raises ClientFailure if it is seen through another one.
  void checkOutTo(long folder) const;
};

/// A file, current generation.
class FilePart : public Dual<VaultFile> {
 public:
  explicit FilePart(const FileState& state) : state(state) {}

  STDMETHODIMP getLocalCopy(LONG parentWindow, LONG reserved, VARIANT path, LONG flag,
                            BSTR* localPath) override;
  STDMETHODIMP checkOut(LONG folderId, LONG parentWindow, LONG flags) override;
  STDMETHODIMP currentState(VaultObject** workflowState) override;
  STDMETHODIMP isCheckedOut(VARIANT_BOOL* result) override;
  STDMETHODIMP checkedOutBy(VaultObject** user) override;
  STDMETHODIMP checkedOutOnComputer(BSTR* computer) override;
  STDMETHODIMP latestVersion(LONG* version) override;
  STDMETHODIMP checkedOutInPath(BSTR* path) override;
  STDMETHODIMP checkedOutInFolderId(LONG* folderId) override;
  STDMETHODIMP localVersion(VARIANT folderId, LONG* version) override;

 private:
  FileState state;
};

class FileObject final : public ComObject<FilePart, NamedPart> {
 public:
  explicit FileObject(const FileState& state);
};

}  // namespace wb
