#pragma once

#include <aced.h>

namespace tessaro {

class DocumentEvents;

/// Forwards the editor's events to the module.
class EditorReactor : public AcEditorReactor {
 public:
  /// @param events receives the events; outlives the reactor
  explicit EditorReactor(DocumentEvents& events) : events(&events) {}

  /// The edit guard's last check before saving clears the mark of changes. It covers changes
  /// without a command and those of a command that is still running.
  void beginSave(AcDbDatabase* database, const ACHAR* intendedName) override;
  void saveComplete(AcDbDatabase* database, const ACHAR* actualName) override;

  /// No event of the host.
  virtual void editorNotice();

 private:
  DocumentEvents* events;
};

}  // namespace tessaro
