#pragma once

#include <memory>
#include <vector>

#include "client/FileObject.h"
#include "client/Position.h"
#include "TessaroClient.h"

namespace wb {

/// A file, older generation.
class LegacyFilePart : public Dual<VaultFileLegacy> {
 public:
  explicit LegacyFilePart(const FileState& state) : state(state) {}

  STDMETHODIMP name(BSTR* result) override;
  STDMETHODIMP checkOut(VaultFolderLegacy* folder, LONG parentWindow) override;
  STDMETHODIMP versionList(VaultVersionList** versions) override;
  STDMETHODIMP cardData(BSTR name, VaultCardData** card) override;
  STDMETHODIMP isCheckedOutHere(LONG folderId, VARIANT_BOOL* result) override;
  STDMETHODIMP isCheckedOut(LONG* userId, LONG* inFolderId, LONG* version,
                            VARIANT_BOOL* result) override;

 private:
  FileState state;
};

class LegacyFileObject final : public ComObject<LegacyFilePart, NamedPart> {
 public:
  explicit LegacyFileObject(const FileState& state);
};

/// The versions that a file had when the list was asked for.
class VersionListPart : public Dual<VaultVersionList> {
 public:
  using State = std::vector<StoredVersion>;
  explicit VersionListPart(const State& versions) : versions(versions) {}

  STDMETHODIMP firstPosition(VaultPosition** position) override;
  STDMETHODIMP nextVersion(VaultPosition* position, LONG* version, BSTR* comment, LONG* userId,
                           DATE* date) override;

 private:
  State versions;
};

}  // namespace wb
