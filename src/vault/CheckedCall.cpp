#include "vault/CheckedCall.h"

namespace tessaro {

long parentWindow(const AppContext& app) {
  return static_cast<long>(reinterpret_cast<LONG_PTR>(app.mainWindow));
}

_bstr_t nameOf(IUnknown* object) {
  const VaultObjectPtr named = object;
  _bstr_t name;
  check(named->name(name.GetAddress()), *named);
  return name;
}

_bstr_t nameOf(VaultFileLegacy* file) {
  _bstr_t name;
  check(required(file).name(name.GetAddress()), *file);
  return name;
}

long idOf(IUnknown* object) {
  const VaultObjectPtr numbered = object;
  long id = 0;
  check(numbered->id(&id), *numbered);
  return id;
}

long idOf(VaultFolderLegacy* folder) {
  long id = 0;
  check(required(folder).id(&id), *folder);
  return id;
}

bool isCheckedOut(VaultFile* file) {
  VARIANT_BOOL checkedOut = VARIANT_FALSE;
  check(required(file).isCheckedOut(&checkedOut), *file);
  return checkedOut != VARIANT_FALSE;
}

bool isCheckedOut(VaultFileLegacy* file) {
  VARIANT_BOOL checkedOut = VARIANT_FALSE;
  check(required(file).isCheckedOut(nullptr, nullptr, nullptr, &checkedOut), *file);
  return checkedOut != VARIANT_FALSE;
}

bool isCheckedOutHere(VaultFileLegacy* file, VaultFolderLegacy* folder) {
  VARIANT_BOOL checkedOut = VARIANT_FALSE;
  check(required(file).isCheckedOutHere(idOf(folder), &checkedOut), *file);
  return checkedOut != VARIANT_FALSE;
}

void checkOut(const AppContext& app, VaultFile* file, VaultFolder* folder) {
  check(required(file).checkOut(idOf(folder), parentWindow(app), 0), *file);
}

void checkOut(const AppContext& app, VaultFileLegacy* file, VaultFolderLegacy* folder) {
  check(required(file).checkOut(folder, parentWindow(app)), *file);
}

CString rootFolderPath(VaultClient* client) {
  _bstr_t path;
  check(required(client).rootFolderPath(path.GetAddress()), *client);
  return textOf(path);
}

void getLocalCopy(const AppContext& app, VaultFile* file, const CString& path) {
  // Fetch the latest version even if the local copy is another one.
  const long fetchAnyway = 1;
  const _variant_t fullPath(path.c_str());
  _bstr_t localPath;
  check(required(file).getLocalCopy(parentWindow(app), 0, fullPath, fetchAnyway,
                                    localPath.GetAddress()),
        *file);
}

}  // namespace tessaro
