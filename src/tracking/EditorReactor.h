#pragma once

#include <aced.h>

namespace tessaro {

class DocumentEvents;

/// Hands the editor's events on to the module.
class EditorReactor : public AcEditorReactor {
 public:
  /// @param events receives the events; outlives the reactor
  explicit EditorReactor(DocumentEvents& events) : events(&events) {}

  /// The guard's last look before the mark of the changes goes with the saving: at what was changed
  /// without a command, or in one that is still running.
  void beginSave(AcDbDatabase* database, const ACHAR* intendedName) override;
  void saveComplete(AcDbDatabase* database, const ACHAR* actualName) override;

  /// No event of the host.
  virtual void editorNotice();

 private:
  DocumentEvents* events;
};

}  // namespace tessaro
