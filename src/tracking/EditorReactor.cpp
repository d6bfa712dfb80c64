#include "tracking/EditorReactor.h"

#include "tracking/DocumentEvents.h"

void EditorReactor::saveComplete(AcDbDatabase* database, const ACHAR* actualName) {
  events->saved(database, actualName);
}

void EditorReactor::editorNotice() { events->editorNotice(); }
