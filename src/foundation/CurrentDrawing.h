#pragma once

class AcApDocument;
class AcDbDatabase;

namespace tessaro {

/// The drawing of the host's working database. It need not be the drawing of the active window.
struct CurrentDrawing {
  AcDbDatabase* database = nullptr;
  AcApDocument* document = nullptr;

  /// Whether there is such a drawing.
  explicit operator bool() const { return document != nullptr; }
};

/// @return the current drawing, an empty one if no drawing is open
CurrentDrawing currentDrawing();

/// @return whether the current drawing has unsaved changes: any bit of the host's variable DBMOD
bool isCurrentDrawingModified();

}  // namespace tessaro
