#include "client/MainObject.h"

#include "client/Bstr.h"
#include "client/ClientCall.h"
#include "client/FileObject.h"
#include "client/FolderObject.h"
#include "client/LegacyFileObject.h"
#include "client/NamedObject.h"
#include "client/Results.h"
#include "client/TextTable.h"
#include "core/SessionState.h"
#include "core/Transcript.h"

namespace wb {
namespace {

// What the two generations have in common; only the names of the interfaces differ.

HRESULT loginCall(const wchar_t* operation, ClientSession& session, BSTR vaultName,
                  LONG parentWindow) {
  return ClientCall(operation)
      .with(L"vault", vaultName)
      .window(L"parent", parentWindow)
      .runVoid([&] { session.login(textOf(vaultName)); });
}

HRESULT vaultNameCall(const wchar_t* operation, BSTR path, BSTR* vaultName) {
  return ClientCall(operation).with(L"path", path).out(vaultName).runVoid([&] {
    const StoredVault* vault = store().vaultOf(textOf(path));
    if (!vault) throw ClientFailure(E_QVT_KEY_NOT_FOUND);
    *vaultName = newBstr(vault->name);
  });
}

HRESULT errorTextCall(const wchar_t* operation, LONG code, LONG reserved, BSTR* text) {
  return ClientCall(operation)
      .code(L"code", code)
      .with(L"reserved", reserved)
      .out(text)
      .runVoid([&] { *text = newBstr(ClientTexts::errorText(code)); });
}

/// The file of a path in the session's vault, null for a folder of the view.
const StoredFile* fileOf(const ClientSession& session, const std::wstring& path) {
  const StoredVault& vault = session.vault();
  const StoredVault* holder = store().vaultOf(path);
  if (!holder) throw ClientFailure(E_QVT_KEY_NOT_FOUND);
  if (holder->name != vault.name) throw ClientFailure(E_QVT_NOT_LOGGED_IN);
  const StoredFile* file = store().find(path);
  if (file) {
    if (file->denied) throw ClientFailure(E_QVT_PERMISSION_DENIED);
    return file;
  }
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const bool isFolder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
  if (!isFolder) throw ClientFailure(E_QVT_FILE_NOT_FOUND);
  return nullptr;
}

template <class FolderInterface, class FileInterface, class FileClass>
HRESULT fileCall(const wchar_t* operation, const ClientSession& session, BSTR path,
                 FolderInterface** folder, FileInterface** file) {
  return ClientCall(operation)
      .with(L"path", path)
      .out(folder, L"folder")
      .out(file, L"file")
      .runVoid([&] {
        const std::wstring text = textOf(path);
        const StoredFile* stored = fileOf(session, text);
        auto foundFolder = folderObject<FolderInterface>(text, stored == nullptr);
        Owned<FileInterface> foundFile;
        if (stored) {
          foundFile = make<FileClass, FileInterface>(FileState::of(session.vault(), *stored));
        }
        *folder = foundFolder.release();
        *file = foundFile.release();
      });
}

}  // namespace

STDMETHODIMP ClientPart::login(BSTR vaultName, LONG parentWindow) {
  return loginCall(L"VaultClient.login", *session, vaultName, parentWindow);
}

STDMETHODIMP ClientPart::vaultNameFromPath(BSTR path, BSTR* vaultName) {
  return vaultNameCall(L"VaultClient.vaultNameFromPath", path, vaultName);
}

STDMETHODIMP ClientPart::errorText(LONG code, LONG reserved, BSTR* text) {
  return errorTextCall(L"VaultClient.errorText", code, reserved, text);
}

STDMETHODIMP ClientPart::fileFromPath(BSTR path, VaultFolder** folder, VaultFile** file) {
  return fileCall<VaultFolder, VaultFile, FileObject>(L"VaultClient.fileFromPath", *session, path,
                                                      folder, file);
}

STDMETHODIMP ClientPart::rootFolderPath(BSTR* path) {
  return ClientCall(L"VaultClient.rootFolderPath").out(path).runVoid([&] {
    *path = newBstr(session->vault().root + L"\\");
  });
}

STDMETHODIMP LegacyClientPart::errorText(LONG code, LONG reserved, BSTR* text) {
  return errorTextCall(L"VaultClientLegacy.errorText", code, reserved, text);
}

STDMETHODIMP LegacyClientPart::fileFromPath(BSTR path, VaultFolderLegacy** folder,
                                            VaultFileLegacy** file) {
  return fileCall<VaultFolderLegacy, VaultFileLegacy, LegacyFileObject>(
      L"VaultClientLegacy.fileFromPath", *session, path, folder, file);
}

STDMETHODIMP LegacyClientPart::clientVersion(LONG* major, LONG* minor) {
  return ClientCall(L"VaultClientLegacy.clientVersion")
      .out(major, L"major")
      .out(minor, L"minor")
      .runVoid([&] {
        *major = clientCondition().major;
        *minor = clientCondition().minor;
      });
}

STDMETHODIMP LegacyClientPart::login(BSTR vaultName, LONG parentWindow) {
  return loginCall(L"VaultClientLegacy.login", *session, vaultName, parentWindow);
}

STDMETHODIMP LegacyClientPart::vaultNameFromPath(BSTR path, BSTR* vaultName) {
  return vaultNameCall(L"VaultClientLegacy.vaultNameFromPath", path, vaultName);
}

STDMETHODIMP RootFolderPart::rootFolder(VaultObject** folder) {
  return ClientCall(L"VaultRootFolderAccess.rootFolder").out(folder).runVoid([&] {
    const StoredVault& vault = session->vault();
    *folder = namedObject(L"root folder", {StoredVault::rootFolderId, vault.name}).release();
  });
}

STDMETHODIMP GatePart::presentCode(LONG code) {
  return ClientCall(L"VaultGate.presentCode").with(L"code", code).runVoid([&] {
    if (!session->presentCode(code)) throw ClientFailure(E_QVT_PERMISSION_DENIED);
  });
}

HRESULT MainObject::admit(REFIID iid) {
  if (iid == __uuidof(VaultQuery) && !session->isGateOpen()) {
    tell(Event::client, L"QueryInterface(VaultQuery) -> E_NOINTERFACE");
    return E_NOINTERFACE;
  }
  return admitInterface(iid);
}

}  // namespace wb
