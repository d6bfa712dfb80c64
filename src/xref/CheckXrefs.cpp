#include "xref/CheckXrefs.h"

#include <windows.h>

#include <acdocman.h>
#include <axlock.h>
#include <dbapserv.h>
#include <dbmain.h>

#include <acedxref.h>

#include <comdef.h>
#include <map>
#include <memory>
#include <stdexcept>

#include "foundation/AppMessageBox.h"
#include "vault/CheckedCall.h"
#include "vault/Messages.h"
#include "vault/ResultCodes.h"
#include "vault/VaultView.h"
#include "xref/ModifiedDates.h"
#include "xref/ProgressMeter.h"
#include "xref/XrefGraph.h"
#include "xref/XrefInfo.h"
#include "xref/XrefPaths.h"
#include "xref/XrefStateObserver.h"
#include "xref/XrefWork.h"

namespace tessaro {

namespace {

/// The file of an xref's block.
struct XrefFile {
  CString path;            ///< as this block spells it
  XrefFileRecord* record;  ///< in the file map: a look-up there compares many texts
};

/// One check of the current drawing. Refreshed files may have new nested xrefs, so the xref graph
/// is walked again after each pass that refreshed a file. No file is compared twice.
class XrefChecker {
 public:
  XrefChecker(AppContext& app, const CString& drawingFolder, bool update)
      : app(app), drawingFolder(drawingFolder), update(update) {}

  XrefCheck run();

 private:
  void findFiles(const AcDbGraphNode& root);
  void enterNewXref(const AcDbXrefGraphNode& node);
  const XrefFile& fileOf(const AcDbXrefGraphNode& node) const;
  void readDates();
  bool compareFiles(const AcDbGraphNode& root);
  bool refreshStale();
  bool refresh(const XrefFileRecord& record);

  AppContext& app;
  const CString drawingFolder;
  const bool update;
  XrefInfo xref;
  std::map<AcDbObjectId, XrefFile> fileOfBlock;
  XrefFileMap files;
  XrefFileRecord noRecord;
  const XrefFile outsideView{CString(), &noRecord};  ///< of a block that isn't in `fileOfBlock`
  PathSet asked;
  PathSet stalePaths;
  std::unique_ptr<VaultViewRecord> view;
  bool outOfDate = false;
};

XrefCheck XrefChecker::run() {
  for (bool again = true; again;) {
    asked.clear();
    AcDbXrefGraph graph;
    if (fetchXrefGraph(graph) != Acad::eOk || graph.numNodes() == 0) return XrefCheck::impossible;
    const AcDbGraphNode& root = *graph.node(0);
    if (root.numOut() == 0) return XrefCheck::noXrefs;
    findFiles(root);
    if (asked.empty()) break;
    readDates();
    if (!compareFiles(root)) return XrefCheck::outOfDate;
    if (!update) return XrefCheck::current;
    again = refreshStale();
  }
  return outOfDate ? XrefCheck::outOfDate : XrefCheck::current;
}

void XrefChecker::findFiles(const AcDbGraphNode& root) {
  walkXrefs(root, [this](const AcDbXrefGraphNode& node) {
    const auto known = fileOfBlock.find(node.btrId());
    if (known == fileOfBlock.end()) {
      enterNewXref(node);
    } else if (!known->second.record->visited) {
      asked.insert(known->second.path);
    }
    return true;
  });
}

void XrefChecker::enterNewXref(const AcDbXrefGraphNode& node) {
  // The host's graph has ghost nodes, for the xrefs nested in an unloaded one; they have no block.
  // A ghost node counts as the file of the node before it, since its own file can't be read while
  // its parent is unloaded.
  readXrefBlock(node.btrId(), xref);
  if (!view) openVaultViewRecord(app, view, drawingFolder);
  CString path;
  if (!relativeToRoot(xref.path, drawingFolder, view->rootPath, path)) return;
  XrefFileRecord record;
  record.name = xref.name;
  if (!joinPath(view->rootPath, path, record.fullPath)) return;
  // Most drawings have their xrefs in the order of their names.
  const auto entered = files.insert_or_assign(files.end(), path, record);
  fileOfBlock[node.btrId()] = {path, &entered->second};
  asked.insert(path);
}

const XrefFile& XrefChecker::fileOf(const AcDbXrefGraphNode& node) const {
  const auto known = fileOfBlock.find(node.btrId());
  return known == fileOfBlock.end() ? outsideView : known->second;
}

void XrefChecker::readDates() {
  const CString rootPath = rootFolderPath(view->client);
  readModifiedDates(*view, buildModifiedDateBatch(rootPath, view->rootFolderId, asked), files);
}

/// @return false if a stale file ends a check without an update
bool XrefChecker::compareFiles(const AcDbGraphNode& root) {
  bool ended = false;
  walkXrefs(root, [&](const AcDbXrefGraphNode& node) {
    if (ended) return false;
    const XrefFile& file = fileOf(node);
    XrefFileRecord& record = *file.record;
    if (record.visited) return true;
    switch (isOutOfDate(record)) {
      case FileAge::unreadable:
        return false;
      case FileAge::outOfDate:
        outOfDate = true;
        ended = !update;
        stalePaths.insert(file.path);
        record.visited = true;
        // The xrefs nested in a stale file may change with the refresh; the next pass compares
        // them.
        return false;
      case FileAge::current:
        break;
    }
    record.visited = true;
    return true;
  });
  return !ended;
}

/// @return whether a file was refreshed
bool XrefChecker::refreshStale() {
  bool refreshed = false;
  ProgressMeter meter(static_cast<int>(stalePaths.size()));
  for (const CString& path : stalePaths) {
    const XrefFileRecord& record = files[path];
    meter.next(record.fullPath);
    if (refresh(record)) refreshed = true;
  }
  stalePaths.clear();
  return refreshed;
}

/// @return false if the vault doesn't find the file; the xref stays unloaded then
bool XrefChecker::refresh(const XrefFileRecord& record) {
  acedXrefUnload(record.name.c_str(), true, nullptr);
  VaultFolderPtr folder;
  VaultFilePtr file;
  const _bstr_t path(record.fullPath.c_str());
  if (FAILED(view->client->fileFromPath(path, &folder, &file))) return false;
  getLocalCopy(app, file, record.fullPath);
  acedXrefReload(record.name.c_str(), true, nullptr);
  return true;
}

XrefCheck checkLocked(AppContext& app, XrefStateObserver& observer, const CString& folder,
                      bool update) {
  try {
    const XrefCheck result = XrefChecker(app, folder, update).run();
    const bool complete = result == XrefCheck::current || result == XrefCheck::outOfDate;
    if (update && complete) observer.SetXrefsLatest();
    return result;
  } catch (const ResultCode& code) {
    return static_cast<XrefCheck>(code.value);
  } catch (const _com_error& error) {
    appMessageBox(fixedTexts::xrefQueryFailed + resultCodeText(error.Error()), MB_ICONINFORMATION);
    return XrefCheck::failed;
  }
}

}  // namespace

XrefCheck checkXrefs(AppContext& app, XrefStateObserver& observer, bool update) {
  // A second check would unload the same xrefs and fetch the same files.
  if (XrefWork::inProgress()) return XrefCheck::impossible;
  const XrefWork work;
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  if (!database) return XrefCheck::impossible;
  CString folder;
  try {
    folder = currentDrawingFolder();
  } catch (const std::runtime_error&) {
    return XrefCheck::impossible;
  }
  AcAxDocLock lock(database);
  if (lock.lockStatus() != Acad::eOk) return XrefCheck::impossible;
  return checkLocked(app, observer, folder, update);
}

}  // namespace tessaro
