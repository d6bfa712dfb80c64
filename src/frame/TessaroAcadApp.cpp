#include "frame/TessaroAcadApp.h"

#include <acdocman.h>
#include <aced.h>
#include <dbapserv.h>
#include <dbents.h>

#include "checkout/Unlock.h"
#include "foundation/Border.h"
#include "frame/CommandTable.h"
#include "frame/HostService.h"
#include "tracking/SelectFile.h"
#include "vault/MessageStrings.h"
#include "xref/EditXref.h"

namespace tessaro {

namespace {

AcEditor* editor() { return hostServiceOfClass<AcEditor>(L"AcEditor", L"AcEditor"); }

void registerSelectFile(bool unRegister) {
  acdbHostApplicationServices()->registerSelectFileCallback(L"Tessaro", TessaroSelectFile,
                                                            unRegister, false);
}

/// Stands in for the status window while there is none.
class NoWindow final : public XrefStateObserver {
 public:
  void SetXrefsLatest() override {}
  void SetXrefsUnknown() override {}
};

}  // namespace

TessaroAcadApp::TessaroAcadApp() : ArxMfcApp(L"Tessaro", 1, 1, 1) {}

TessaroAcadApp::~TessaroAcadApp() {
  // Not null only if the host ended without kUnloadAppMsg. Its windows and reactor lists no longer
  // exist then, so these objects can't be destroyed.
  static_cast<void>(xrefContext.release());
  static_cast<void>(editorReactor.release());
  static_cast<void>(docManagerReactor.release());
  static_cast<void>(statusWindow.release());
}

void TessaroAcadApp::processEnds() {
  static_cast<void>(vaultClient.Detach());
  forgetTextService();
}

// A failed step doesn't prevent the following ones.
AcRx::AppRetCode TessaroAcadApp::initApp(void* pkt) {
  atBorder([this] { xrefContext = std::make_unique<XRefContext>(*this); });
  atBorder([this] { editorReactor = std::make_unique<EditorReactor>(*this); });
  atBorder([this] { docManagerReactor = std::make_unique<DocManagerReactor>(*this); });
  pendingCheckIn.checkInPending = false;
  addCommands(*this);
  if (xrefContext) acedAddObjectContextMenu(AcDbBlockReference::desc(), xrefContext.get(), pkt);
  if (AcEditor* host = editorReactor ? editor() : nullptr) host->addReactor(editorReactor.get());
  if (docManagerReactor) acDocManagerPtr()->addReactor(docManagerReactor.get());
  atBorder(
      [this] { statusWindow = std::make_unique<FloatWindow>(*this, moduleInstance, mainWindow); });
  // Without the client the pointer stays null; a command that needs a client reports it.
  atBorder([this] { vaultClient.CreateInstance(__uuidof(VaultMain), nullptr, CLSCTX_ALL); });
  registerSelectFile(false);
  return AcRx::kRetOK;
}

AcRx::AppRetCode TessaroAcadApp::unloadApp(void*) {
  registerSelectFile(true);
  if (xrefContext) acedRemoveObjectContextMenu(AcDbBlockReference::desc(), xrefContext.get());
  if (AcEditor* host = editorReactor ? editor() : nullptr) host->removeReactor(editorReactor.get());
  if (docManagerReactor) acDocManagerPtr()->removeReactor(docManagerReactor.get());
  xrefContext.reset();
  editorReactor.reset();
  docManagerReactor.reset();
  statusWindow.reset();
  laterCalls.drop();
  releaseTextService();
  return AcRx::kRetOK;
}

XrefStateObserver& TessaroAcadApp::xrefStateObserver() {
  static NoWindow noWindow;
  if (statusWindow) return *statusWindow;
  return noWindow;
}

int TessaroAcadApp::beginCommand() {
  CoInitialize(nullptr);
  return 1;
}

void TessaroAcadApp::endCommand() { CoUninitialize(); }

void TessaroAcadApp::documentToBeDestroyed(AcApDocument* document) {
  onDocumentToBeDestroyed(*this, pendingReloads, document);
  guardedDocuments.erase(document);
  if (statusWindow) statusWindow->DocumentDestroyed(document);
}

void TessaroAcadApp::documentActivated(AcApDocument* document) {
  atBorder([&] { onDocumentActivated(*this, pendingReloads, document); });
  if (statusWindow) statusWindow->DocumentActivated(document);
}

void TessaroAcadApp::editGuardCheck(AcApDocument* document) {
  tessaro::editGuardCheck(*this, guardedDocuments, document);
}

void TessaroAcadApp::saveBegins(AcDbDatabase* database) {
  AcApDocument* document = acDocManagerPtr()->document(database);
  // The guard reads DBMOD, which the host reports for the current drawing only.
  if (document != nullptr && document == acDocManagerPtr()->curDocument()) editGuardCheck(document);
}

void TessaroAcadApp::saved(AcDbDatabase* database, const ACHAR* actualName) {
  if (statusWindow) statusWindow->DocumentSaved(database, actualName);
}

void TessaroAcadApp::documentDestroyed(const ACHAR* fileName) {
  onDocumentDestroyed(*this, pendingCheckIn, fileName);
}

}  // namespace tessaro
