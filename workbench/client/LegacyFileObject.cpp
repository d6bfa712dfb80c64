#include "client/LegacyFileObject.h"

#include "client/Bstr.h"
#include "client/CardData.h"
#include "client/ClientCall.h"
#include "client/FolderObject.h"
#include "client/Results.h"
#include "client/StoreDate.h"

namespace wb {

STDMETHODIMP LegacyFilePart::name(BSTR* result) {
  return ClientCall(L"VaultFileLegacy.name").out(result).runVoid([&] {
    *result = newBstr(state.file().name());
  });
}

STDMETHODIMP LegacyFilePart::checkOut(VaultFolderLegacy* folder, LONG parentWindow) {
  return ClientCall(L"VaultFileLegacy.checkOut")
      .object(L"folder", folder)
      .window(L"parent", parentWindow)
      .runVoid([&] { state.checkOutTo(folderIdOf(folder)); });
}

STDMETHODIMP LegacyFilePart::versionList(VaultVersionList** versions) {
  return ClientCall(L"VaultFileLegacy.versionList").out(versions).runVoid([&] {
    *versions = make<ComObject<VersionListPart>, VaultVersionList>(
                    namedLabel(L"VaultVersionList", state.name), state.file().versions)
                    .release();
  });
}

STDMETHODIMP LegacyFilePart::cardData(BSTR name, VaultCardData** card) {
  return ClientCall(L"VaultFileLegacy.cardData").with(L"name", name).out(card).runVoid([&] {
    // The one card that a file of the store has is that of its type, which has no name.
    if (!textOf(name).empty()) throw ClientFailure(E_QVT_CARD_NOT_FOUND);
    state.file();
    *card = cardDataObject(state).release();
  });
}

STDMETHODIMP LegacyFilePart::isCheckedOutHere(LONG folderId, VARIANT_BOOL* result) {
  return ClientCall(L"VaultFileLegacy.isCheckedOutHere")
      .with(L"folder", folderId)
      .out(result)
      .runVoid([&] { *result = state.isHeldHere(folderId) ? VARIANT_TRUE : VARIANT_FALSE; });
}

STDMETHODIMP LegacyFilePart::isCheckedOut(LONG* userId, LONG* inFolderId, LONG* version,
                                          VARIANT_BOOL* result) {
  return ClientCall(L"VaultFileLegacy.isCheckedOut")
      .out(result, L"result")
      .optionalOut(userId, L"user")
      .optionalOut(inFolderId, L"folder")
      .optionalOut(version, L"version")
      .runVoid([&] {
        const StoredFile& file = state.file();
        if (!file.holder) return;
        if (userId) *userId = idOfName(file.holder->user);
        if (inFolderId) *inFolderId = file.holder->folderId;
        if (version) *version = store().localVersion(file, file.holder->folderId);
        *result = VARIANT_TRUE;
      });
}

LegacyFileObject::LegacyFileObject(const FileState& state)
    : ComObject(namedLabel(L"VaultFileLegacy", state.name), state) {}

STDMETHODIMP VersionListPart::firstPosition(VaultPosition** position) {
  return ClientCall(L"VaultVersionList.firstPosition").out(position).runVoid([&] {
    *position = firstOf(this, versions.size()).release();
  });
}

STDMETHODIMP VersionListPart::nextVersion(VaultPosition* position, LONG* version, BSTR* comment,
                                          LONG* userId, DATE* date) {
  return ClientCall(L"VaultVersionList.nextVersion")
      .object(L"position", position)
      .out(version, L"version")
      .out(comment, L"comment")
      .optionalOut(userId, L"user")
      .optionalOut(date, L"date")
      .runVoid([&] {
        const StoredVersion& found = versions[PositionPart::advance(position, this)];
        *comment = newBstr(found.comment);
        *version = found.number;
        if (userId) *userId = idOfName(found.user);
        if (date) *date = localDate(found.date);
      });
}

}  // namespace wb
