#include "client/FileObject.h"

#include "client/Bstr.h"
#include "client/ClientCall.h"
#include "client/Results.h"
#include "core/Text.h"

namespace wb {
namespace {

/// What stands for the version of a copy that isn't there.
constexpr long noVersion = -1;

std::wstring textOf(const VARIANT& value) {
  if (V_VT(&value) != VT_BSTR) throw ClientFailure(E_INVALIDARG);
  return wb::textOf(V_BSTR(&value));
}

}  // namespace

FileState FileState::of(const StoredVault& vault, const StoredFile& file) {
  FileState state;
  state.id = file.id;
  state.name = file.name();
  state.path = Store::localPath(vault, file);
  return state;
}

const StoredFile& FileState::file() const {
  const StoredFile* found = store().find(path);
  if (!found) throw ClientFailure(E_QVT_FILE_NOT_FOUND);
  return *found;
}

bool FileState::isHeldHere(long inFolder) const {
  const StoredFile& stored = file();
  return Store::isHeldByUsHere(stored) && stored.holder->folderId == inFolder;
}

void FileState::checkOutTo(long folder) const {
  file();
  if (folder != folderId()) throw ClientFailure(E_QVT_FOLDER_NOT_FOUND);
  store().checkOut(path);
}

STDMETHODIMP FilePart::getLocalCopy(LONG parentWindow, LONG reserved, VARIANT path, LONG flag,
                                    BSTR* localPath) {
  return ClientCall(L"VaultFile.getLocalCopy")
      .window(L"parent", parentWindow)
      .with(L"reserved", reserved)
      .with(L"path", path)
      .with(L"flag", flag)
      .out(localPath)
      .runVoid([&] {
        if (!sameName(textOf(path), state.path)) throw ClientFailure(E_INVALIDARG);
        const bool wanted = flag == 1 || store().localVersion(state.file(), state.folderId()) == 0;
        if (wanted) store().fetch(state.path, state.file().latest().number);
        *localPath = newBstr(state.path);
      });
}

STDMETHODIMP FilePart::checkOut(LONG folderId, LONG parentWindow, LONG flags) {
  return ClientCall(L"VaultFile.checkOut")
      .with(L"folder", folderId)
      .window(L"parent", parentWindow)
      .with(L"flags", flags)
      .runVoid([&] { state.checkOutTo(folderId); });
}

STDMETHODIMP FilePart::currentState(VaultObject** workflowState) {
  return ClientCall(L"VaultFile.currentState").out(workflowState).runVoid([&] {
    const std::wstring name = state.file().state;
    *workflowState = namedObject(L"state", {idOfName(name), name}).release();
  });
}

STDMETHODIMP FilePart::isCheckedOut(VARIANT_BOOL* result) {
  return ClientCall(L"VaultFile.isCheckedOut").out(result).runVoid([&] {
    *result = state.file().holder ? VARIANT_TRUE : VARIANT_FALSE;
  });
}

STDMETHODIMP FilePart::checkedOutBy(VaultObject** user) {
  return ClientCall(L"VaultFile.checkedOutBy").out(user).runVoid([&] {
    const auto& holder = state.file().holder;
    if (holder) *user = namedObject(L"user", {idOfName(holder->user), holder->user}).release();
  });
}

STDMETHODIMP FilePart::checkedOutOnComputer(BSTR* computer) {
  return ClientCall(L"VaultFile.checkedOutOnComputer").out(computer).runVoid([&] {
    const auto& holder = state.file().holder;
    *computer = newBstr(holder ? holder->computer : std::wstring());
  });
}

STDMETHODIMP FilePart::latestVersion(LONG* version) {
  return ClientCall(L"VaultFile.latestVersion").out(version).runVoid([&] {
    *version = state.file().latest().number;
  });
}

STDMETHODIMP FilePart::checkedOutInPath(BSTR* path) {
  return ClientCall(L"VaultFile.checkedOutInPath").out(path).runVoid([&] {
    const auto& holder = state.file().holder;
    *path = newBstr(holder ? holder->folder : std::wstring());
  });
}

STDMETHODIMP FilePart::checkedOutInFolderId(LONG* folderId) {
  return ClientCall(L"VaultFile.checkedOutInFolderId").out(folderId).runVoid([&] {
    const auto& holder = state.file().holder;
    *folderId = holder ? holder->folderId : 0;
  });
}

STDMETHODIMP FilePart::localVersion(VARIANT folderId, LONG* version) {
  return ClientCall(L"VaultFile.localVersion").with(L"folder", folderId).out(version).runVoid([&] {
    if (V_VT(&folderId) != VT_I4) throw ClientFailure(E_INVALIDARG);
    const long local = store().localVersion(state.file(), V_I4(&folderId));
    // The user may have deleted the copy of this folder; of others there is only the record.
    const bool isGone = V_I4(&folderId) == state.folderId() &&
                        GetFileAttributesW(state.path.c_str()) == INVALID_FILE_ATTRIBUTES;
    *version = local < 1 || isGone ? noVersion : local;
  });
}

FileObject::FileObject(const FileState& state)
    : ComObject(namedLabel(L"VaultFile", state.name), state) {}

}  // namespace wb
