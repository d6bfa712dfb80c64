#pragma once

#include <acdocman.h>

namespace tessaro {

class DocumentEvents;

/// Forwards the document manager's events to the module.
class DocManagerReactor : public AcApDocManagerReactor {
 public:
  /// @param events receives the events; outlives the reactor
  explicit DocManagerReactor(DocumentEvents& events) : events(&events) {}

  void documentToBeDestroyed(AcApDocument* document) override;
  void documentDestroyed(const ACHAR* fileName) override;
  /// Every command locks its document before a change and unlocks it afterwards. The edit guard
  /// checks after the last unlock, when the change has been made.
  void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode myPreviousMode,
                               AcAp::DocLockMode myCurrentMode, AcAp::DocLockMode currentMode,
                               const ACHAR* globalCmdName) override;
  void documentActivated(AcApDocument* document) override;

  /// Runs the edit guard. No event of the host.
  /// @param document the current one: the host reports the changes of no other
  virtual void editGuardCheck(AcApDocument* document);

 private:
  DocumentEvents* events;
};

}  // namespace tessaro
