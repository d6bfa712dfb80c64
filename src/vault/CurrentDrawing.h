#pragma once

class AcApDocument;
class AcDbDatabase;

namespace tessaro {

/// The drawing of the host's working database, which need not be the one of the window on top.
struct CurrentDrawing {
  AcDbDatabase* database = nullptr;
  AcApDocument* document = nullptr;

  /// Whether there is such a drawing.
  explicit operator bool() const { return document != nullptr; }
};

/// The current drawing, an empty one if no drawing is open.
CurrentDrawing currentDrawing();

/// The same; tells the user if no drawing is open.
CurrentDrawing requireCurrentDrawing();

/// Whether the current drawing has unsaved changes: any bit of the host's variable DBMOD.
bool isCurrentDrawingModified();

}  // namespace tessaro
