#include "vault/CheckOutState.h"

#include "vault/ErrorReport.h"
#include "vault/OpenVaultFile.h"
#include "vault/VaultSteps.h"

namespace tessaro {

namespace {

void appendVersions(VaultFileLegacy& file, std::vector<VersionEntry>& versions) {
  VaultVersionListPtr list;
  check(file.versionList(&list), file);
  VaultPositionPtr position;
  check(list->firstPosition(&position), *list);
  for (;;) {
    long atEnd = 0;
    check(position->isNull(&atEnd), *position);
    if (atEnd != 0) return;
    long version = 0, userId = 0;
    DATE date = 0;
    _bstr_t comment;
    check(list->nextVersion(position, &version, comment.GetAddress(), &userId, &date), *list);
    versions.push_back({version, textOf(comment)});
  }
}

}  // namespace

CheckOutState readCheckOutState(AppContext& app, const CString& path,
                                std::vector<VersionEntry>* versions) {
  OpenedVaultFileLegacy opened;
  auto& [client, folder, file] = opened;
  _bstr_t vaultName;
  if (!reachVault(path, client, vaultName, true)) return CheckOutState::notInVault;
  check(logIn(app, client, vaultName), *client);
  if (!succeededOr({E_QVT_FILE_NOT_FOUND}, true, findFile(client, path, folder, file), *client)) {
    return CheckOutState::notInVault;
  }
  CheckOutState state = CheckOutState::notCheckedOut;
  if (isCheckedOut(file)) {
    state = isCheckedOutHere(file, folder) ? CheckOutState::checkedOutHere
                                           : CheckOutState::checkedOutElsewhere;
  }
  if (versions != nullptr) appendVersions(*file, *versions);
  return state;
}

CheckOutState readCheckOutStateOrReport(AppContext& app, const CString& path,
                                        std::vector<VersionEntry>* versions) {
  try {
    return readCheckOutState(app, path, versions);
  } catch (const _com_error& error) {
    reportResultText(error);
    return CheckOutState::notInVault;
  }
}

}  // namespace tessaro
