#pragma once

#include <windows.h>

#include "acarray.h"
#include "acdb.h"
#include "dbid.h"
#include "rxobject.h"

class AcApStatusBar;
class AcDbDatabase;
class AcEdInputPointManager;
class AcTransactionManager;
class CDocument;
struct AcLispAppInfo;

/// Values of document locking.
struct AcAp {
  enum DocLockMode {
    kNone = 0x00,
    kAutoWrite = 0x01,
    kNotLocked = 0x02,
    kWrite = 0x04,
    kProtectedAutoWrite = 0x14,
    kRead = 0x20,
    kXWrite = 0x40
  };
};

/// An open drawing.
class AcApDocument : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcApDocument)

  enum SaveFormat : int;

  /// Full path of the file, empty for a drawing that was never saved; the document keeps it.
  virtual const ACHAR* fileName() const = 0;
  virtual CDocument* cDoc() const = 0;
  virtual AcTransactionManager* transactionManager() const = 0;
  virtual AcDbDatabase* database() const = 0;
  virtual SaveFormat formatForSave() const = 0;
  virtual AcAp::DocLockMode lockMode(bool includeMine = false) const = 0;
  virtual AcAp::DocLockMode myLockMode() const = 0;
  virtual bool isQuiescent() const = 0;
  virtual void* contextPtr() const = 0;
  virtual AcEdInputPointManager* inputPointManager() = 0;
  virtual const ACHAR* docTitle() const = 0;
  virtual IDispatch* GetIDispatch(bool) = 0;
  virtual bool isReadOnly() const = 0;
  virtual int GetCountOfLispList() const = 0;
  virtual AcLispAppInfo* GetItemOfLispList(int) const = 0;
  virtual AcApStatusBar* drawingStatusBar() const = 0;
};

/// The caller deletes it.
class AcApDocumentIterator : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcApDocumentIterator)

  virtual bool done() const = 0;
  virtual void step() = 0;
  virtual AcApDocument* document() = 0;
};

/// Events of the documents' life. The bodies here do nothing.
class AcApDocManagerReactor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcApDocManagerReactor)
  AcApDocManagerReactor() : mVeto(0) {}

  virtual void documentCreateStarted(AcApDocument* pDocCreating);
  virtual void documentCreated(AcApDocument* pDocCreated);
  virtual void documentToBeDestroyed(AcApDocument* pDocToDestroy);
  virtual void documentDestroyed(const ACHAR* fileName);
  virtual void documentCreateCanceled(AcApDocument* pDocCreateCancelled);
  virtual void documentLockModeWillChange(AcApDocument* pDoc, AcAp::DocLockMode myCurrentMode,
                                          AcAp::DocLockMode myNewMode,
                                          AcAp::DocLockMode currentMode,
                                          const ACHAR* pGlobalCmdName);
  virtual void documentLockModeChangeVetoed(AcApDocument* pDoc, const ACHAR* pGlobalCmdName);
  /// `pGlobalCmdName` begins with "#" when the lock of that command goes back.
  virtual void documentLockModeChanged(AcApDocument* pDoc, AcAp::DocLockMode myPreviousMode,
                                       AcAp::DocLockMode myCurrentMode,
                                       AcAp::DocLockMode currentMode, const ACHAR* pGlobalCmdName);
  virtual void documentBecameCurrent(AcApDocument* pDoc);
  virtual void documentToBeActivated(AcApDocument* pActivatingDoc);
  virtual void documentToBeDeactivated(AcApDocument* pDeActivatedDoc);
  virtual void documentActivationModified(bool bActivation);
  virtual void documentActivated(AcApDocument* pActivatedDoc);

 private:
  [[maybe_unused]] Adesk::Int8 mVeto;
};

/// The open documents and the work on them.
class AcApDocManager : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcApDocManager)

  /// The document in whose context the host works, or null.
  virtual AcApDocument* curDocument() const = 0;
  /// The document of the window on top, or null.
  virtual AcApDocument* mdiActiveDocument() const = 0;
  virtual bool isApplicationContext() const = 0;
  virtual AcApDocument* document(const AcDbDatabase* pDb) const = 0;
  virtual Acad::ErrorStatus lockDocument(AcApDocument*, AcAp::DocLockMode, const ACHAR*,
                                         const ACHAR*, bool) = 0;
  virtual Acad::ErrorStatus unlockDocument(AcApDocument*) = 0;
  virtual AcApDocumentIterator* newAcApDocumentIterator() = 0;
  virtual void addReactor(AcApDocManagerReactor* reactor) = 0;
  virtual void removeReactor(AcApDocManagerReactor* reactor) = 0;
  virtual Acad::ErrorStatus setDefaultFormatForSave(AcApDocument::SaveFormat) = 0;
  virtual Acad::ErrorStatus setCurDocument(AcApDocument*, AcAp::DocLockMode, bool) = 0;
  virtual Acad::ErrorStatus activateDocument(AcApDocument*, bool) = 0;
  /// Queues text as if it were typed in the document; it runs when the host is idle.
  virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* pAcTargetDocument,
                                                const ACHAR* pszExecute, bool bActivate = true,
                                                bool bWrapUpInactiveDoc = false,
                                                bool bEchoString = true) = 0;
  /// From the application context only, else `eInvalidContext`.
  virtual Acad::ErrorStatus appContextNewDocument(const ACHAR* pszTemplateName) = 0;
  virtual Acad::ErrorStatus appContextOpenDocument(const ACHAR* pszDrawingName) = 0;
  virtual Acad::ErrorStatus newDocument() = 0;
  virtual Acad::ErrorStatus openDocument() = 0;
  /// Closes; asks the user about unsaved changes, and the user may refuse.
  virtual Acad::ErrorStatus closeDocument(AcApDocument* pAcTargetDocument) = 0;
  virtual int inputPending(AcApDocument*) = 0;
  virtual Acad::ErrorStatus disableDocumentActivation() = 0;
  virtual Acad::ErrorStatus enableDocumentActivation() = 0;
  virtual bool isDocumentActivationEnabled() = 0;
  virtual void executeInApplicationContext(void (*procAddr)(void*), void* pData) const = 0;
  virtual int documentCount() const = 0;
  virtual void pushResourceHandle(HINSTANCE) = 0;
  virtual void pushAcadResourceHandle() = 0;
  virtual void popResourceHandle() = 0;
  virtual Acad::ErrorStatus sendModelessInterrupt(AcApDocument*) = 0;
};

AcApDocManager* acDocManagerPtr();
