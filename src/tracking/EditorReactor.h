#pragma once

#include <aced.h>

class DocumentEvents;

/// Hands the editor's events on to the module.
class EditorReactor : public AcEditorReactor {
 public:
  /// @param events receives the events; outlives the reactor
  explicit EditorReactor(DocumentEvents& events) : events(&events) {}

  void saveComplete(AcDbDatabase* database, const ACHAR* actualName) override;

  /// No event of the host.
  virtual void editorNotice();

 private:
  DocumentEvents* events;
};
