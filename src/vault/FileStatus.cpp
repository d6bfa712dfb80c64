#include "vault/FileStatus.h"

#include <iterator>

#include "vault/CheckedCall.h"
#include "vault/ErrorReport.h"

namespace tessaro {

namespace {

bool isThisComputer(const _bstr_t& computer) {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
  DWORD size = std::size(name);
  return GetComputerNameW(name, &size) && lstrcmpiW(textOf(computer).c_str(), name) == 0;
}

bool heldHere(VaultFile& file, VaultFolder* folder) {
  if (!isCheckedOut(&file)) return false;
  _bstr_t computer;
  check(file.checkedOutOnComputer(computer.GetAddress()), file);
  if (!isThisComputer(computer)) return false;
  long folderId = 0;
  check(file.checkedOutInFolderId(&folderId), file);
  return folderId == idOf(folder);
}

long localVersion(VaultFile& file, VaultFolder* folder) {
  const _variant_t folderId(idOf(folder), VT_I4);
  long version = 0;
  check(file.localVersion(folderId, &version), file);
  return version;
}

long latestVersion(VaultFile& file) {
  long version = 0;
  check(file.latestVersion(&version), file);
  return version;
}

VaultObjectPtr currentState(VaultFile& file) {
  VaultObjectPtr state;
  check(file.currentState(&state), file);
  return state;
}

VaultObjectPtr holder(VaultFile& file) {
  VaultObjectPtr user;
  check(file.checkedOutBy(&user), file);
  return user;
}

CString textFrom(VaultFile& file, HRESULT (STDMETHODCALLTYPE VaultFile::*read)(BSTR*)) {
  _bstr_t text;
  check((file.*read)(text.GetAddress()), file);
  return textOf(text);
}

void fill(const FileStatus& wanted, VaultFile& file, VaultFolder* folder) {
  if (wanted.fileName != nullptr) *wanted.fileName = textOf(nameOf(&file));
  if (wanted.stateName != nullptr) *wanted.stateName = textOf(nameOf(currentState(file)));
  if (wanted.localVersion != nullptr) *wanted.localVersion = localVersion(file, folder);
  if (wanted.latestVersion != nullptr) *wanted.latestVersion = latestVersion(file);
  if (wanted.isCheckedOut != nullptr) *wanted.isCheckedOut = isCheckedOut(&file);
  if (wanted.isCheckedOutHere != nullptr) {
    *wanted.isCheckedOutHere = false;
    *wanted.isCheckedOutHere = heldHere(file, folder);
  }
  if (wanted.holderName != nullptr) {
    wanted.holderName->clear();
    if (holder(file)) *wanted.holderName = textOf(nameOf(holder(file)));
  }
  if (wanted.holderComputer != nullptr) {
    *wanted.holderComputer = textFrom(file, &VaultFile::checkedOutOnComputer);
  }
  if (wanted.holderPath != nullptr) {
    *wanted.holderPath = textFrom(file, &VaultFile::checkedOutInPath);
  }
}

}  // namespace

bool isHeldHere(AppContext&, VaultFilePtr& file, VaultFolderPtr& folder) {
  const VaultFilePtr ownFile(file.Detach(), false);
  const VaultFolderPtr ownFolder(folder.Detach(), false);
  return heldHere(*ownFile, ownFolder);
}

bool readFileStatus(AppContext& app, const CString& path, const FileStatus& wanted) {
  try {
    OpenedVaultFile opened;
    if (!openVaultFile(app, path, opened, true)) return false;
    fill(wanted, *opened.file, opened.folder);
    return true;
  } catch (const _com_error& error) {
    reportResultText(error);
    return false;
  }
}

}  // namespace tessaro
