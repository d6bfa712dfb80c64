#pragma once

#include <AdAChar.h>

class AcApDocument;
class AcDbDatabase;

namespace tessaro {

/// The events of the host's drawings that the module takes, as its reactors hand them on. What a
/// receiver has no use for does nothing.
class DocumentEvents {
 public:
  /// The document is about to go; it and its database can still be read.
  virtual void documentToBeDestroyed(AcApDocument*) {}
  /// The document is gone and its file is closed.
  /// @param fileName the full path that the document had
  virtual void documentDestroyed(const ACHAR* /*fileName*/) {}
  /// The document's window is on top now.
  virtual void documentActivated(AcApDocument*) {}
  /// The document may have been changed by the user. The host takes a _com_error from it.
  virtual void editGuardCheck(AcApDocument*) {}
  /// The drawing is about to be written. The host takes a _com_error, as from the check above.
  virtual void saveBegins(AcDbDatabase*) {}
  /// The drawing was saved.
  /// @param actualName the full path that was written
  virtual void saved(AcDbDatabase*, const ACHAR* /*actualName*/) {}
  /// The editor has something to say beyond the host's own events.
  virtual void editorNotice() {}

 protected:
  ~DocumentEvents() = default;
};

}  // namespace tessaro
