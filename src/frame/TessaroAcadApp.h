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

/// The add-in: what it keeps between one call of the host and the next.
class TessaroAcadApp : public ArxMfcApp, public DocumentEvents {
 public:
  TessaroAcadApp();
  ~TessaroAcadApp() override;

  AcRx::AppRetCode initApp(void* pkt) override;
  AcRx::AppRetCode unloadApp(void* pkt) override;
  /// Opens the command's own level of COM on the host's main thread.
  int beginCommand() override;
  void endCommand() override;

  void documentToBeDestroyed(AcApDocument* document) override;
  void documentDestroyed(const ACHAR* fileName) override;
  void documentActivated(AcApDocument* document) override;
  void editGuardCheck(AcApDocument* document) override;
  void saveBegins(AcDbDatabase* database) override;
  void saved(AcDbDatabase* database, const ACHAR* actualName) override;

  /// The status window, or somebody who listens to nothing while there is none.
  XrefStateObserver& xrefStateObserver();

  /// Lets go of everything without a call on it: the process ends, and whose it is may be gone.
  void processEnds();

  /// The vault client's main object, null if the client can't be started. It lives past `unloadApp`
  /// so that the client stays in the process for as long as the module does.
  VaultClientPtr vaultClient;
  std::unique_ptr<XRefContext> xrefContext;
  std::unique_ptr<EditorReactor> editorReactor;
  std::unique_ptr<DocManagerReactor> docManagerReactor;
  /// The xrefs to load again when the user comes back to the drawing that holds them.
  XrefList pendingReloads;
  /// Null if Windows couldn't make it, and while it is being made: its first look at the drawing
  /// may show a box, and the host goes on sending events meanwhile.
  std::unique_ptr<FloatWindow> statusWindow;
  PendingCheckIn pendingCheckIn;
  GuardedDocuments guardedDocuments;
};

}  // namespace tessaro
