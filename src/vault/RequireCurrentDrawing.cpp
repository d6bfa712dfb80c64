#include "vault/RequireCurrentDrawing.h"

#include "foundation/AppMessageBox.h"
#include "vault/Messages.h"

namespace tessaro {

CurrentDrawing requireCurrentDrawing() {
  const CurrentDrawing drawing = currentDrawing();
  if (!drawing) appMessageBox(loadMessage(messages::noDrawingOpen), MB_ICONINFORMATION);
  return drawing;
}

}  // namespace tessaro
