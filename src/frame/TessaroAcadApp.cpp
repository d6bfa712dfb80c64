#include "frame/TessaroAcadApp.h"

#include <acdocman.h>
#include <aced.h>
#include <dbapserv.h>
#include <dbents.h>

#include "checkout/Unlock.h"
#include "frame/CommandTable.h"
#include "frame/HostService.h"
#include "tracking/SelectFile.h"
#include "vault/MessageStrings.h"
#include "xref/EditXref.h"

namespace {

AcEditor* editor() { return hostServiceOfClass<AcEditor>(L"AcEditor", L"AcEditor"); }

void registerSelectFile(bool unRegister) {
  acdbHostApplicationServices()->registerSelectFileCallback(L"Tessaro", TessaroSelectFile,
                                                            unRegister, false);
}

}  // namespace

TessaroAcadApp::TessaroAcadApp() : ArxMfcApp(L"Tessaro", 1, 1, 1) {}

TessaroAcadApp::~TessaroAcadApp() {
  // Still there only if the host went without a word: its windows and reactor lists are gone by
  // now, and what is in them mustn't be touched any more.
  static_cast<void>(xrefContext.release());
  static_cast<void>(editorReactor.release());
  static_cast<void>(docManagerReactor.release());
  static_cast<void>(statusWindow.release());
}

AcRx::AppRetCode TessaroAcadApp::initApp(void* pkt) {
  xrefContext = std::make_unique<XRefContext>(*this);
  editorReactor = std::make_unique<EditorReactor>(*this);
  docManagerReactor = std::make_unique<DocManagerReactor>(*this);
  pendingCheckIn.checkInPending = false;
  addCommands(*this);
  acedAddObjectContextMenu(AcDbBlockReference::desc(), xrefContext.get(), pkt);
  if (AcEditor* host = editor()) {
    host->addReactor(editorReactor.get());
  }
  acDocManagerPtr()->addReactor(docManagerReactor.get());
  statusWindow = std::make_unique<FloatWindow>(*this, moduleInstance, mainWindow);
  // Without the client the pointer stays null: a command says so when it needs one.
  vaultClient.CreateInstance(__uuidof(VaultMain), nullptr, CLSCTX_ALL);
  registerSelectFile(false);
  return AcRx::kRetOK;
}

AcRx::AppRetCode TessaroAcadApp::unloadApp(void*) {
  registerSelectFile(true);
  acedRemoveObjectContextMenu(AcDbBlockReference::desc(), xrefContext.get());
  if (AcEditor* host = editor()) {
    host->removeReactor(editorReactor.get());
  }
  acDocManagerPtr()->removeReactor(docManagerReactor.get());
  xrefContext.reset();
  editorReactor.reset();
  docManagerReactor.reset();
  statusWindow.reset();
  releaseTextService();
  return AcRx::kRetOK;
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
  onDocumentActivated(*this, pendingReloads, document);
  if (statusWindow) statusWindow->DocumentActivated(document);
}

void TessaroAcadApp::editGuardCheck(AcApDocument* document) {
  ::editGuardCheck(*this, guardedDocuments, document);
}

void TessaroAcadApp::saved(AcDbDatabase* database, const ACHAR* actualName) {
  if (statusWindow) statusWindow->DocumentSaved(database, actualName);
}

void TessaroAcadApp::documentDestroyed(const ACHAR* fileName) {
  onDocumentDestroyed(*this, pendingCheckIn, fileName);
}
