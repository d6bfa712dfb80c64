#pragma once

#include <acdocman.h>

namespace tessaro {

class DocumentEvents;

/// Hands the document manager's events on to the module.
class DocManagerReactor : public AcApDocManagerReactor {
 public:
  /// @param events receives the events; outlives the reactor
  explicit DocManagerReactor(DocumentEvents& events) : events(&events) {}

  void documentToBeDestroyed(AcApDocument* document) override;
  void documentDestroyed(const ACHAR* fileName) override;
  /// Every command that changes a document locks it first and lets it go afterwards, so this comes
  /// again and again while the user works. The guard looks when the last lock has gone back, behind
  /// the change.
  void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode myPreviousMode,
                               AcAp::DocLockMode myCurrentMode, AcAp::DocLockMode currentMode,
                               const ACHAR* globalCmdName) override;
  void documentActivated(AcApDocument* document) override;

  /// No event of the host: looks whether the user changes a drawing that isn't held.
  /// @param document the current one, since the host tells of no other's changes
  virtual void editGuardCheck(AcApDocument* document);

 private:
  DocumentEvents* events;
};

}  // namespace tessaro
