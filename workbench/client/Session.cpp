#include "client/Session.h"

#include <iterator>

#include "client/Results.h"

namespace wb {
namespace {

constexpr long accessCode[] = {3176520, 19980117, 5201874};
constexpr HRESULT vaultDoesNotExist = static_cast<HRESULT>(0x800404CD);

}  // namespace

void ClientSession::login(const std::wstring& name) {
  const StoredVault* vault = store().vaultNamed(name);
  if (!vault) throw ClientFailure(vaultDoesNotExist);
  vaultName = vault->name;
}

const StoredVault& ClientSession::vault() const {
  const StoredVault* vault = vaultName ? store().vaultNamed(*vaultName) : nullptr;
  if (!vault) throw ClientFailure(E_QVT_NOT_LOGGED_IN);
  return *vault;
}

bool ClientSession::presentCode(long code) {
  if (isGateOpen() || code != accessCode[codesTaken]) {
    codesTaken = 0;
    return false;
  }
  ++codesTaken;
  return true;
}

bool ClientSession::isGateOpen() const { return codesTaken == std::size(accessCode); }

}  // namespace wb
