#pragma once

#include <stddef.h>

#include "acarray.h"
#include "acdb.h"
#include "dbid.h"
#include "rxdlinkr.h"

class AcDbAbstractClipBoundaryDefinition;
class AcDbAppSystemVariables;
class AcDbAuditInfo;
class AcDbDatabase;
class AcDbGlobals;
class AcDbHostApplicationProgressMeter;
class AcDbLayoutManager;
class AcDbPlotSettingsValidator;
class AcDbTransactionManager;
class AcDbUndoController;
class AcPwdCache;
class AcadInternalServices;
class CArchive;
class COleClientItem;
class ClipBoundaryArray;
struct _EXCEPTION_POINTERS;
struct flagmat;
enum code_page_id : int;
// Windows' own, without windows.h.
typedef unsigned long LCID;

/// Asked before the host shows a file dialog of its own; `Acad::eNotHandled` passes the request on.
typedef Acad::ErrorStatus (*SELECTFILEPROC)(short* userCancel, ACHAR*& chosenPath, void* hwnd,
                                            const int nFlags, const ACHAR* prompt, const ACHAR* dir,
                                            const ACHAR* name, const ACHAR* type, int* pnChoice,
                                            bool* pbReadOnly, const ACHAR* pszWSTags,
                                            void* pReserved);
/// Asked where a file of the host's is, and told where it was found.
typedef Acad::ErrorStatus (*REMAPPROC)(ACHAR*& newName, const ACHAR* filename, int nContext,
                                       void* pReserved);
typedef Acad::ErrorStatus (*MAPFILENOTIFYPROC)(const ACHAR* filename, const ACHAR* newName,
                                               int nContext, void* pReserved);

/// What the host does for the database code in it.
class AcDbHostApplicationServices : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices)

  enum FindFileHint : int;
  enum ModelerFlavor : int;
  enum PasswordOptions : int;
  enum ProdIdCode : int;

  AcDbHostApplicationServices();
  ~AcDbHostApplicationServices() override;

  /// The database that operations without a database argument work on, or null.
  AcDbDatabase* workingDatabase() const { return mpWorkingDatabase; }
  void setWorkingDatabase(AcDbDatabase* pDatabase);

  virtual Acad::ErrorStatus findFile(ACHAR*, int, const ACHAR*, AcDbDatabase*, FindFileHint) = 0;
  virtual Acad::ErrorStatus getRoamableRootFolder(const ACHAR*&);
  virtual Acad::ErrorStatus getLocalRootFolder(const ACHAR*&);
  /// Has a file selected. `chosenPath` is freed by the caller; `userCancel` is set non-zero if the
  /// user cancelled.
  virtual Acad::ErrorStatus selectFile(short* userCancel, ACHAR*& chosenPath, void* hwnd,
                                       const int nFlags, const ACHAR* prompt, const ACHAR* dir,
                                       const ACHAR* name, const ACHAR* type, int* pnChoice,
                                       bool* pbReadOnly, const ACHAR* pszWSTags, void* pReserved);
  /// Adds a callback, behind the others or, with `asPrimary`, before them; or takes it away.
  virtual Acad::ErrorStatus registerSelectFileCallback(const ACHAR* appName, SELECTFILEPROC proc,
                                                       bool unRegister = false,
                                                       bool asPrimary = false);
  virtual const ACHAR* primaryClientForSelectFileCallback();
  virtual Acad::ErrorStatus getRegisteredSelectFileClients(AcArray<const ACHAR*>&);
  virtual Acad::ErrorStatus mapFile(ACHAR*&, const ACHAR*, int, void*);
  virtual Acad::ErrorStatus registerMapFileCallback(const ACHAR*, REMAPPROC, bool, bool);
  virtual const ACHAR* primaryClientForMapFileCallback();
  virtual bool setMapFlag(bool);
  virtual Acad::ErrorStatus getRegisteredFileMapClients(AcArray<const ACHAR*>&);
  virtual Acad::ErrorStatus registerMapFileNotification(const ACHAR*, MAPFILENOTIFYPROC, bool);
  virtual void fatalError(const ACHAR*, ...);
  virtual void reportUnhandledArxException(const _EXCEPTION_POINTERS*, const ACHAR*);
  virtual Adesk::Boolean userBreak(bool) const;
  virtual void displayChar(ACHAR) const;
  virtual void displayString(const ACHAR*, int) const;
  virtual Adesk::Boolean readyToDisplayMessages();
  virtual void enableMessageDisplay(Adesk::Boolean);
  virtual Adesk::Boolean doFullCRCCheck();
  virtual unsigned int getTempPath(Adesk::UInt32, ACHAR*);
  virtual const ACHAR* getEnv(const ACHAR*);
  virtual AcDbHostApplicationProgressMeter* newProgressMeter();
  virtual AcDbAbstractClipBoundaryDefinition* newClipBoundaryRectangular();
  virtual AcDbAbstractClipBoundaryDefinition* newClipBoundaryPolygonal();
  virtual ClipBoundaryArray* newClipBoundaryArray();
  virtual AcDbUndoController* defaultUndoController();
  virtual AcDbTransactionManager* workingTransactionManager();
  virtual AcDbGlobals* createWorkingGlobals();
  virtual const ACHAR* program();
  virtual const ACHAR* product();
  virtual const ACHAR* companyName();
// Published with a const that says nothing.
#if defined(__GNUC__) || defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"
#endif
  virtual const ProdIdCode prodcode();
#if defined(__GNUC__) || defined(__clang__)
#pragma GCC diagnostic pop
#endif
  virtual const ACHAR* releaseMajorMinorString();
  virtual int releaseMajorVersion();
  virtual int releaseMinorVersion();
  virtual const ACHAR* versionString();
  virtual const ACHAR* getRegistryProductRootKey();
  virtual LCID getRegistryProductLCID();
  virtual bool supportsMultiRedo() const;
  virtual ModelerFlavor getModelerFlavor() const;
  virtual AcadInternalServices* acadInternalServices();
  virtual Adesk::Boolean isURL(const ACHAR*) const;
  virtual Adesk::Boolean isRemoteFile(const ACHAR*, ACHAR*) const;
  virtual Acad::ErrorStatus getRemoteFile(const ACHAR*, ACHAR*, Adesk::Boolean) const;
  virtual Acad::ErrorStatus putRemoteFile(const ACHAR*, const ACHAR*) const;
  virtual Adesk::Boolean launchBrowserDialog(ACHAR*, const ACHAR*, const ACHAR*, const ACHAR*,
                                             const ACHAR*, Adesk::Boolean) const;
  virtual void drawOleOwnerDrawItem(COleClientItem*, Adesk::LongPtr, long, long, long, long);
  virtual Acad::ErrorStatus getNewOleClientItem(COleClientItem*&);
  virtual Acad::ErrorStatus serializeOleItem(COleClientItem*, CArchive*);
  virtual Adesk::Boolean _entToWorldTransform(double*, flagmat*);
  virtual void terminateScript();
  virtual Adesk::Boolean getSubstituteFont(ACHAR**, ACHAR*, int, int);
  virtual void alert(const ACHAR*) const;
  virtual void auditPrintReport(AcDbAuditInfo*, const ACHAR*, int) const;
  virtual ACHAR* getAlternateFontName() const;
  virtual ACHAR* getFontMapFileName() const;
  virtual bool cacheSymbolIndices() const;
  virtual AcDbPlotSettingsValidator* plotSettingsValidator() const;
  virtual AcDbLayoutManager* layoutManager() const;
  virtual bool loadApp(const ACHAR*, AcadApp::LoadReasons, bool, bool);
  virtual void getDefaultPlotCfgInfo(ACHAR*, ACHAR*);
  virtual Acad::ErrorStatus signingComplete(Acad::ErrorStatus, const ACHAR*, bool*);
  virtual bool getPassword(const ACHAR*, PasswordOptions, wchar_t*, const size_t);
  virtual void usedPasswordFromCacheMsg(const ACHAR*);
  virtual void missingCryptoProviderMsg();
  virtual const ACHAR* getColorBookLocation() const;

 private:
  void* mp_sessionVars;
  AcDbDatabase* mpWorkingDatabase;
  AcDbUndoController* mpDefaultUndoController;
  AcDbTransactionManager* mpWorkingTransactionManager;
  AcDbGlobals* mpWorkingGlobals;
  AcDbAppSystemVariables* mpWorkingAppSysvars;
  code_page_id m_eSystemCodePage;
  Adesk::Boolean mbDisplayMessages;
  AcPwdCache* mpPasswordCache;
};

// Data of the host's is exported by who implements the host and imported by everybody else. Where
// there is no such thing as __declspec(dllimport), the linker sees to it.
#ifndef _MSC_VER
#define HOSTAPI_DATA extern
#elif defined(HOSTAPI_IMPLEMENTATION)
#define HOSTAPI_DATA extern __declspec(dllexport)
#else
#define HOSTAPI_DATA extern __declspec(dllimport)
#endif

/// The one services object of the host.
HOSTAPI_DATA AcDbHostApplicationServices* s_pServices;

inline AcDbHostApplicationServices* acdbHostApplicationServices() { return s_pServices; }
