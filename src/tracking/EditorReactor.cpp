#include "tracking/EditorReactor.h"

#include "foundation/Border.h"
#include "tracking/DocumentEvents.h"

namespace tessaro {

void EditorReactor::beginSave(AcDbDatabase* database, const ACHAR*) {
  asComErrors([&] { events->saveBegins(database); });
}

void EditorReactor::saveComplete(AcDbDatabase* database, const ACHAR* actualName) {
  atBorder([&] { events->saved(database, actualName); });
}

void EditorReactor::editorNotice() {
  atBorder([&] { events->editorNotice(); });
}

}  // namespace tessaro
