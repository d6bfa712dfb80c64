#include "foundation/CurrentDrawing.h"

#include <acdocman.h>
#include <acedads.h>
#include <dbapserv.h>

namespace tessaro {

CurrentDrawing currentDrawing() {
  CurrentDrawing drawing;
  drawing.database = acdbHostApplicationServices()->workingDatabase();
  if (drawing.database != nullptr) drawing.document = acDocManagerPtr()->document(drawing.database);
  return drawing;
}

bool isCurrentDrawingModified() {
  resbuf value = {};
  acedGetVar(L"DBMOD", &value);
  return value.resval.rint != 0;
}

}  // namespace tessaro
