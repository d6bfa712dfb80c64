#include "vault/CurrentDrawing.h"

#include <acdocman.h>
#include <acedads.h>
#include <dbapserv.h>

#include "foundation/AppMessageBox.h"
#include "vault/MessageStrings.h"

namespace tessaro {

CurrentDrawing currentDrawing() {
  CurrentDrawing drawing;
  drawing.database = acdbHostApplicationServices()->workingDatabase();
  if (drawing.database != nullptr) drawing.document = acDocManagerPtr()->document(drawing.database);
  return drawing;
}

CurrentDrawing requireCurrentDrawing() {
  const CurrentDrawing drawing = currentDrawing();
  if (!drawing) {
    appMessageBox(loadMessage(1, "This command is only available if you have a drawing open."),
                  MB_ICONINFORMATION);
  }
  return drawing;
}

bool isCurrentDrawingModified() {
  resbuf value = {};
  acedGetVar(L"DBMOD", &value);
  return value.resval.rint != 0;
}

}  // namespace tessaro
