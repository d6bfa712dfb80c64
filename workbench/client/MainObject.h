#pragma once

#include <memory>

#include "client/ComObject.h"
#include "client/Session.h"
#include "TessaroClient.h"

namespace wb {

using SharedSession = std::shared_ptr<ClientSession>;

/// The main interface, current generation.
class ClientPart : public Dual<VaultClient> {
 public:
  explicit ClientPart(SharedSession session) : session(std::move(session)) {}

  STDMETHODIMP login(BSTR vaultName, LONG parentWindow) override;
  STDMETHODIMP vaultNameFromPath(BSTR path, BSTR* vaultName) override;
  STDMETHODIMP errorText(LONG code, LONG reserved, BSTR* text) override;
  STDMETHODIMP fileFromPath(BSTR path, VaultFolder** folder, VaultFile** file) override;
  STDMETHODIMP rootFolderPath(BSTR* path) override;

 private:
  SharedSession session;
};

/// The main interface, older generation.
class LegacyClientPart : public Dual<VaultClientLegacy> {
 public:
  explicit LegacyClientPart(SharedSession session) : session(std::move(session)) {}

  STDMETHODIMP errorText(LONG code, LONG reserved, BSTR* text) override;
  STDMETHODIMP fileFromPath(BSTR path, VaultFolderLegacy** folder, VaultFileLegacy** file) override;
  STDMETHODIMP clientVersion(LONG* major, LONG* minor) override;
  STDMETHODIMP login(BSTR vaultName, LONG parentWindow) override;
  STDMETHODIMP vaultNameFromPath(BSTR path, BSTR* vaultName) override;

 private:
  SharedSession session;
};

class RootFolderPart : public Dual<VaultRootFolderAccess> {
 public:
  explicit RootFolderPart(SharedSession session) : session(std::move(session)) {}

  STDMETHODIMP rootFolder(VaultObject** folder) override;

 private:
  SharedSession session;
};

class GatePart : public Dual<VaultGate> {
 public:
  explicit GatePart(SharedSession session) : session(std::move(session)) {}

  STDMETHODIMP presentCode(LONG code) override;

 private:
  SharedSession session;
};

class QueryPart : public Dual<VaultQuery> {
 public:
  explicit QueryPart(SharedSession session) : session(std::move(session)) {}

  STDMETHODIMP execute(BSTR statements, IUnknown** result) override;

 private:
  SharedSession session;
};

/// Only a query has more to say about a failure than its code.
class QueryErrorsPart : public Plain<ISupportErrorInfo> {
 public:
  explicit QueryErrorsPart(const SharedSession&) {}

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
    return iid == __uuidof(VaultQuery) ? S_OK : S_FALSE;
  }
};

/// The client's main object.
class MainObject final : public ComObject<ClientPart, LegacyClientPart, RootFolderPart, GatePart,
                                          QueryPart, QueryErrorsPart> {
 public:
  MainObject() : MainObject(std::make_shared<ClientSession>()) {}

 protected:
  HRESULT admit(REFIID iid) override;

 private:
  explicit MainObject(const SharedSession& session)
      : ComObject(L"VaultClient", session), session(session) {}

  SharedSession session;
};

}  // namespace wb
