#include "xref/GetXrefVersion.h"

#include <windows.h>

#include <shlwapi.h>

#include <acedads.h>
#include <adscodes.h>
#include <dbmain.h>

#include <acedxref.h>

#include "vault/CheckedCall.h"
#include "vault/ItemIdList.h"
#include "vault/Messages.h"
#include "vault/OpenVaultFile.h"
#include "xref/XrefGraph.h"
#include "xref/XrefInfo.h"
#include "xref/XrefPaths.h"
#include "xref/XrefStateObserver.h"
#include "xref/XrefWork.h"

namespace tessaro {

namespace {

void fetchVersion(VaultFolderLegacy* folder, const CString& path, long version) {
  const _bstr_t fileName(PathFindFileNameW(path.c_str()));
  const IShellFolderPtr shellFolder = shellFolderOf(folder);
  const ItemIdList item = parseName(shellFolder, fileName);
  VaultFolderActionsPtr actions;
  check(
      shellFolder->QueryInterface(__uuidof(VaultFolderActions), reinterpret_cast<void**>(&actions)),
      *shellFolder);
  check(actions->getVersion(0, item.get(), version), *actions);
}

}  // namespace

void getChosenXrefVersion(AppContext& app, XrefStateObserver& observer,
                          const VersionChooser& choose) {
  XrefInfo xref;
  if (!selectXref(xref, false) || !makeAbsolute(xref.path)) return;
  const long version = choose(xref.path);
  if (version != 0) getXrefVersion(app, observer, version, xref);
}

void getxrefver2(AppContext& app, XrefStateObserver& observer) {
  XrefInfo xref;
  if (!selectXref(xref, true)) return;
  int version = 0;
  if (acedGetInt(loadMessage(messages::versionPrompt), &version) != RTNORM) return;
  if (makeAbsolute(xref.path)) getXrefVersion(app, observer, version, xref);
}

void getXrefVersion(AppContext& app, XrefStateObserver& observer, long version,
                    const XrefInfo& xref) {
  OpenedVaultFileLegacy opened;
  if (!openVaultFileLegacy(app, xref.path, opened, false)) {
    acedPrompt(fixedTexts::xrefNotInVault);
    return;
  }
  // The client expects the query. Its result doesn't matter: a file that is checked out here is
  // replaced by the version too.
  isCheckedOutHere(opened.file, opened.folder);
  const XrefWork work;
  std::set<CString> tree;
  if (collectXrefTree(xref.name, tree)) {
    for (const CString& name : tree) acedXrefUnload(name.c_str(), true, nullptr);
    fetchVersion(opened.folder, xref.path, version);
    for (const CString& name : tree) acedXrefReload(name.c_str(), true, nullptr);
  }
  observer.SetXrefsUnknown();
}

}  // namespace tessaro
