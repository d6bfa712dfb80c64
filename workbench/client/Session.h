#pragma once

#include <optional>
#include <string>

#include "store/Store.h"

namespace wb {

/// What the interfaces of one main object share: who is logged in where, and how far the gate of
/// the query interface is open. A session is nobody else's: another main object logs in anew.
class ClientSession {
 public:
  /// Raises ClientFailure if there is no vault of that name.
  void login(const std::wstring& vaultName);

  /// The vault that is logged in to. Raises ClientFailure with E_QVT_NOT_LOGGED_IN.
  const StoredVault& vault() const;

  /// Takes the next number of the access code.
  /// @return whether it was the right one; if not, the gate is closed and the code starts again
  bool presentCode(long code);
  bool isGateOpen() const;

 private:
  std::optional<std::wstring> vaultName;
  size_t codesTaken = 0;
};

}  // namespace wb
