#pragma once

#include "rxobject.h"

class AcDbDatabase;
class AcDbLayoutManager;

/// Asked before the host shows a file dialog of its own; `Acad::eNotHandled` passes the request on.
typedef Acad::ErrorStatus (*SELECTFILEPROC)(short* userCancel, ACHAR*& chosenPath, void* hwnd,
                                            const int nFlags, const ACHAR* prompt, const ACHAR* dir,
                                            const ACHAR* name, const ACHAR* type, int* pnChoice,
                                            bool* pbReadOnly, const ACHAR* pszWSTags,
                                            void* pReserved);

/// What the host does for the database code in it.
class AcDbHostApplicationServices : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices)

  /// The database that operations without a database argument work on, or null.
  AcDbDatabase* workingDatabase() const;
  void setWorkingDatabase(AcDbDatabase* pDatabase);

  virtual AcDbLayoutManager* layoutManager() const;
  /// Has a file selected. `chosenPath` is freed by the caller; `userCancel` is set non-zero if the
  /// user cancelled.
  virtual Acad::ErrorStatus selectFile(short* userCancel, ACHAR*& chosenPath, void* hwnd,
                                       const int nFlags, const ACHAR* prompt, const ACHAR* dir,
                                       const ACHAR* name, const ACHAR* type, int* pnChoice,
                                       bool* pbReadOnly, const ACHAR* pszWSTags, void* pReserved);
  /// Adds a callback, behind the others or, with `asPrimary`, before them; or takes it away.
  virtual bool registerSelectFileCallback(const ACHAR* appName, SELECTFILEPROC proc,
                                          bool unRegister = false, bool asPrimary = false);

 private:
  AcDbDatabase* working = nullptr;
};

/// The one services object of the host.
extern AcDbHostApplicationServices* s_pServices;

AcDbHostApplicationServices* acdbHostApplicationServices();
