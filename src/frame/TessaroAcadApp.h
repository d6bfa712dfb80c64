#pragma once

#include <memory>

#include "checkout/PendingCheckIn.h"
#include "frame/ArxMfcApp.h"
#include "tracking/DocManagerReactor.h"
#include "tracking/DocumentEvents.h"
#include "tracking/EditGuard.h"
#include "tracking/EditorReactor.h"
#include "ui/FloatWindow.h"
#include "ui/XRefContext.h"
#include "vault/VaultInterfaces.h"
#include "xref/XrefList.h"

namespace tessaro {

/// The add-in, with its state between two calls of the host.
class TessaroAcadApp : public ArxMfcApp, public DocumentEvents {
 public:
  TessaroAcadApp();
  ~TessaroAcadApp() override;

  AcRx::AppRetCode initApp(void* pkt) override;
  AcRx::AppRetCode unloadApp(void* pkt) override;
  /// Initializes COM on the host's main thread for the command.
  int beginCommand() override;
  void endCommand() override;

  void documentToBeDestroyed(AcApDocument* document) override;
  void documentDestroyed(const ACHAR* fileName) override;
  void documentActivated(AcApDocument* document) override;
  void editGuardCheck(AcApDocument* document) override;
  void saveBegins(AcDbDatabase* database) override;
  void saved(AcDbDatabase* database, const ACHAR* actualName) override;

  /// @return the status window, or an observer that does nothing while there is none
  XrefStateObserver& xrefStateObserver();

  /// Drops the client's objects without a call on them, at the end of the process: their code may
  /// be unloaded.
  void processEnds();

  /// The vault client's main object, null if it can't be created. It is kept after `unloadApp`, so
  /// that the client stays loaded as long as the module.
  VaultClientPtr vaultClient;
  std::unique_ptr<XRefContext> xrefContext;
  std::unique_ptr<EditorReactor> editorReactor;
  std::unique_ptr<DocManagerReactor> docManagerReactor;
  /// The xrefs to reload when the user returns to their drawing.
  XrefList pendingReloads;
  /// Null during its construction, whose first refresh may show a box while the host sends events,
  /// and if the construction failed.
  std::unique_ptr<FloatWindow> statusWindow;
  PendingCheckIn pendingCheckIn;
  GuardedDocuments guardedDocuments;
};

}  // namespace tessaro
