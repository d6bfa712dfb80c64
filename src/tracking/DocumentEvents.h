#pragma once

#include <AdAChar.h>

class AcApDocument;
class AcDbDatabase;

namespace tessaro {

/// The events of the host's drawings, as the reactors forward them. By default they do nothing.
class DocumentEvents {
 public:
  /// The document is about to be destroyed; it and its database can still be read.
  virtual void documentToBeDestroyed(AcApDocument*) {}
  /// The document was destroyed and its file is closed.
  /// @param fileName the full path of the document
  virtual void documentDestroyed(const ACHAR* /*fileName*/) {}
  /// The document's window was activated.
  virtual void documentActivated(AcApDocument*) {}
  /// The user may have changed the document.
  /// @throws _com_error to the host
  virtual void editGuardCheck(AcApDocument*) {}
  /// The drawing is about to be saved.
  /// @throws _com_error to the host
  virtual void saveBegins(AcDbDatabase*) {}
  /// The drawing was saved.
  /// @param actualName the full path that was written
  virtual void saved(AcDbDatabase*, const ACHAR* /*actualName*/) {}
  /// A notice of the editor. No event of the host.
  virtual void editorNotice() {}

 protected:
  ~DocumentEvents() = default;
};

}  // namespace tessaro
