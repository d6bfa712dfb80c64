// The main object: both generations of the main interface, the root folder, the gate and the query.

#include <iterator>
#include <memory>
#include <optional>

#include "client/ClientCall.h"
#include "client/Objects.h"
#include "core/SessionState.h"

namespace wb {
namespace {

/// What the interfaces of one main object share: which vault is logged in to, and how far the gate
/// of the query interface is open. Another main object logs in anew.
class ClientSession {
 public:
  void login(const std::wstring& name) {
    const StoredVault* found = store().vaultNamed(name);
    if (!found) throw ClientFailure(E_FVC_VAULT_DOESNT_EXIST);
    vaultName = found->name;
  }

  const StoredVault& vault() const {
    const StoredVault* found = vaultName ? store().vaultNamed(*vaultName) : nullptr;
    if (!found) throw ClientFailure(E_QVT_NOT_LOGGED_IN);
    return *found;
  }

  /// Takes the next number of the access code. A wrong one closes the gate, and the code starts
  /// again.
  void presentCode(long code) {
    const bool isNext = !isGateOpen() && code == accessCode[codesTaken];
    codesTaken = isNext ? codesTaken + 1 : 0;
    if (!isNext) throw ClientFailure(E_QVT_PERMISSION_DENIED);
  }
  bool isGateOpen() const { return codesTaken == std::size(accessCode); }

 private:
  static constexpr long accessCode[] = {3176520, 19980117, 5201874};

  std::optional<std::wstring> vaultName;
  size_t codesTaken = 0;
};

using SharedSession = std::shared_ptr<ClientSession>;

/// The file of a path in the session's vault, null for a folder of the view.
const StoredFile* fileOf(const ClientSession& session, const std::wstring& path) {
  const StoredVault& vault = session.vault();
  const StoredVault* holder = store().vaultOf(path);
  if (!holder) throw ClientFailure(E_QVT_KEY_NOT_FOUND);
  if (holder->name != vault.name) throw ClientFailure(E_QVT_NOT_LOGGED_IN);
  const StoredFile* file = store().find(path);
  if (file && file->denied) throw ClientFailure(E_QVT_PERMISSION_DENIED);
  if (file) return file;
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const bool isFolder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
  if (!isFolder) throw ClientFailure(E_QVT_FILE_NOT_FOUND);
  return nullptr;
}

/// The operations that both generations of the main interface have.
template <class Interface, class Folder, class File>
struct MainBase : Dual<Interface, SharedSession> {
  using Dual<Interface, SharedSession>::call;

  STDMETHODIMP login(BSTR vaultName, LONG parentWindow) override {
    return call().with(L"vault", vaultName).window(L"parent", parentWindow).run([&] {
      session().login(textOf(vaultName));
    });
  }

  STDMETHODIMP vaultNameFromPath(BSTR path, BSTR* vaultName) override {
    return call().with(L"path", path).result(vaultName, [&] {
      const StoredVault* vault = store().vaultOf(textOf(path));
      if (!vault) throw ClientFailure(E_QVT_KEY_NOT_FOUND);
      return vault->name;
    });
  }

  STDMETHODIMP errorText(LONG code, LONG reserved, BSTR* text) override {
    return call().code(L"code", code).with(L"reserved", reserved).result(text, [&] {
      return wb::errorText(code);
    });
  }

  STDMETHODIMP fileFromPath(BSTR path, Folder** folder, File** file) override {
    return call().with(L"path", path).out(folder, L"folder").out(file, L"file").run([&] {
      const std::wstring text = textOf(path);
      const StoredFile* stored = fileOf(session(), text);
      auto foundFolder = folderObject<Folder>(stored ? text.substr(0, text.rfind(L'\\')) : text);
      if (stored) *file = fileObject<File>(session().vault(), *stored).release();
      *folder = foundFolder.release();
    });
  }

  ClientSession& session() const { return *this->state; }
};

struct ClientPart : MainBase<VaultClient, VaultFolder, VaultFile> {
  STDMETHODIMP rootFolderPath(BSTR* path) override {
    return call().result(path, [&] { return session().vault().root + L"\\"; });
  }
};

struct LegacyClientPart : MainBase<VaultClientLegacy, VaultFolderLegacy, VaultFileLegacy> {
  STDMETHODIMP clientVersion(LONG* major, LONG* minor) override {
    return call().out(major, L"major").out(minor, L"minor").run([&] {
      *major = clientCondition().major;
      *minor = clientCondition().minor;
    });
  }
};

struct RootFolderPart : Dual<VaultRootFolderAccess, SharedSession> {
  STDMETHODIMP rootFolder(VaultObject** folder) override {
    return call().result(folder, [&] {
      return namedObject(L"root folder",
                         VaultItem{StoredVault::rootFolderId, state->vault().name, {}});
    });
  }
};

struct GatePart : Dual<VaultGate, SharedSession> {
  STDMETHODIMP presentCode(LONG code) override {
    return call().with(L"code", code).run([&] { state->presentCode(code); });
  }
};

struct QueryPart : Dual<VaultQuery, SharedSession> {
  bool isAvailable() const { return state->isGateOpen(); }

  STDMETHODIMP execute(BSTR statements, IUnknown** result) override {
    return call().with(L"statements", statements).result(result, [&] {
      return runBatch(textOf(statements), state->vault());
    });
  }
};

/// Only a query has more to say about a failure than its code.
struct QueryErrorsPart : Plain<ISupportErrorInfo, SharedSession> {
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
    return iid == __uuidof(VaultQuery) ? S_OK : S_FALSE;
  }
};

}  // namespace

Owned<VaultClient> mainObject() {
  return make<VaultClient, ClientPart, LegacyClientPart, RootFolderPart, GatePart, QueryPart,
              QueryErrorsPart>(L"VaultClient", std::make_shared<ClientSession>());
}

}  // namespace wb
