#pragma once

#include <accmd.h>
#include <acdblmgr.h>
#include <acdocman.h>
#include <dbapserv.h>
#include <rxdlinkr.h>

#include "gate/HostCall.h"

namespace wb {

// The bases of the host's own classes: what this host doesn't serve of the interfaces that leave
// their methods to it.

class NotServedAcRxClass : public AcRxClass {
 public:
  AcRx::Ordering comparedTo(const AcRxObject*) const override { return NOT_SERVED; }
  AcRxObject* addX(AcRxClass*, AcRxObject*) override { return NOT_SERVED; }
  AcRxObject* getX(const AcRxClass*) override { return NOT_SERVED; }
  AcRxObject* delX(AcRxClass*) override { return NOT_SERVED; }
  AcRxObject* queryX(const AcRxClass*) override { return NOT_SERVED; }
  AcRxObject* create() override { return NOT_SERVED; }
  const ACHAR* appName() const override { return NOT_SERVED; }
  const ACHAR* dxfName() const override { return NOT_SERVED; }
  void getClassVersion(int&, int&) const override { NOT_SERVED; }
  int proxyFlags() const override { return NOT_SERVED; }
  AppNameChangeFuncPtr appNameCallbackPtr() const override { return NOT_SERVED; }
};

class NotServedAcRxDictionary : public AcRxDictionary {
 public:
  AcRxObject* at(const ACHAR*) const override { return NOT_SERVED; }
  AcRxObject* at(Adesk::UInt32) const override { return NOT_SERVED; }
  AcRxObject* atPut(const ACHAR*, AcRxObject*, Adesk::UInt32&) override { return NOT_SERVED; }
  AcRxObject* atPut(Adesk::UInt32, AcRxObject*) override { return NOT_SERVED; }
  Adesk::Boolean resetKey(const ACHAR*, const ACHAR*) override { return NOT_SERVED; }
  Adesk::Boolean resetKey(Adesk::UInt32, const ACHAR*) override { return NOT_SERVED; }
  Adesk::Boolean atKeyAndIdPut(const ACHAR*, Adesk::UInt32, AcRxObject*) override {
    return NOT_SERVED;
  }
  AcRxObject* remove(const ACHAR*) override { return NOT_SERVED; }
  AcRxObject* remove(Adesk::UInt32) override { return NOT_SERVED; }
  Adesk::Boolean has(const ACHAR*) const override { return NOT_SERVED; }
  Adesk::Boolean has(Adesk::UInt32) const override { return NOT_SERVED; }
  Adesk::UInt32 idAt(const ACHAR*) const override { return NOT_SERVED; }
  const ACHAR* keyAt(Adesk::UInt32) const override { return NOT_SERVED; }
  Adesk::UInt32 numEntries() const override { return NOT_SERVED; }
  AcRxDictionaryIterator* newIterator(AcRx::DictIterType) override { return NOT_SERVED; }
  Adesk::Boolean deletesObjects() const override { return NOT_SERVED; }
  Adesk::Boolean isCaseSensitive() const override { return NOT_SERVED; }
  Adesk::Boolean isSorted() const override { return NOT_SERVED; }
};

class NotServedAcRxDynamicLinker : public AcRxDynamicLinker {
 public:
  void* getSymbolAddress(const ACHAR*, const char*) const override { return NOT_SERVED; }
  void* getSymbolAddress(const ACHAR*, const ACHAR*) const override { return NOT_SERVED; }
  bool initListedModules(const ACHAR*) override { return NOT_SERVED; }
  bool loadModule(const ACHAR*, bool, bool) override { return NOT_SERVED; }
  bool loadApp(const ACHAR*, AcadApp::LoadReasons, bool, bool) override { return NOT_SERVED; }
  AcRxObject* registerService(const ACHAR*, AcRxService*) override { return NOT_SERVED; }
  bool unloadModule(const ACHAR*, bool) override { return NOT_SERVED; }
  bool unloadApp(const ACHAR*, bool) override { return NOT_SERVED; }
  void addReactor(AcRxDLinkerReactor*) override { NOT_SERVED; }
  void removeReactor(AcRxDLinkerReactor*) override { NOT_SERVED; }
  bool isApplicationLocked(const ACHAR*) const override { return NOT_SERVED; }
  bool isAppMDIAware(const ACHAR*) const override { return NOT_SERVED; }
  bool isAppBusy(const ACHAR*) const override { return NOT_SERVED; }
  void setAppBusy(const ACHAR*, bool) const override { NOT_SERVED; }
  const ACHAR* ProductKey() const override { return NOT_SERVED; }
  Adesk::UInt32 ProductLcid() const override { return NOT_SERVED; }
};

class NotServedAcApDocument : public AcApDocument {
 public:
  CDocument* cDoc() const override { return NOT_SERVED; }
  AcTransactionManager* transactionManager() const override { return NOT_SERVED; }
  SaveFormat formatForSave() const override { return NOT_SERVED; }
  AcAp::DocLockMode myLockMode() const override { return NOT_SERVED; }
  bool isQuiescent() const override { return NOT_SERVED; }
  void* contextPtr() const override { return NOT_SERVED; }
  AcEdInputPointManager* inputPointManager() override { return NOT_SERVED; }
  const ACHAR* docTitle() const override { return NOT_SERVED; }
  IDispatch* GetIDispatch(bool) override { return NOT_SERVED; }
  int GetCountOfLispList() const override { return NOT_SERVED; }
  AcLispAppInfo* GetItemOfLispList(int) const override { return NOT_SERVED; }
  AcApStatusBar* drawingStatusBar() const override { return NOT_SERVED; }
};

class NotServedAcApDocManager : public AcApDocManager {
 public:
  Acad::ErrorStatus lockDocument(AcApDocument*, AcAp::DocLockMode, const ACHAR*, const ACHAR*,
                                 bool) override {
    return NOT_SERVED;
  }
  Acad::ErrorStatus unlockDocument(AcApDocument*) override { return NOT_SERVED; }
  Acad::ErrorStatus setDefaultFormatForSave(AcApDocument::SaveFormat) override {
    return NOT_SERVED;
  }
  Acad::ErrorStatus setCurDocument(AcApDocument*, AcAp::DocLockMode, bool) override {
    return NOT_SERVED;
  }
  Acad::ErrorStatus activateDocument(AcApDocument*, bool) override { return NOT_SERVED; }
  Acad::ErrorStatus newDocument() override { return NOT_SERVED; }
  Acad::ErrorStatus openDocument() override { return NOT_SERVED; }
  int inputPending(AcApDocument*) override { return NOT_SERVED; }
  Acad::ErrorStatus disableDocumentActivation() override { return NOT_SERVED; }
  Acad::ErrorStatus enableDocumentActivation() override { return NOT_SERVED; }
  bool isDocumentActivationEnabled() override { return NOT_SERVED; }
  int documentCount() const override { return NOT_SERVED; }
  void pushResourceHandle(HINSTANCE) override { NOT_SERVED; }
  void pushAcadResourceHandle() override { NOT_SERVED; }
  void popResourceHandle() override { NOT_SERVED; }
  Acad::ErrorStatus sendModelessInterrupt(AcApDocument*) override { return NOT_SERVED; }
};

class NotServedAcEdCommandStack : public AcEdCommandStack {
 public:
  bool atPut(const ACHAR*, AcRxDictionary*&, AcRxDictionary*&) override { return NOT_SERVED; }
  AcEdCommandIterator* iterator() override { return NOT_SERVED; }
  AcEdCommand* lookupGlobalCmd(const ACHAR*) override { return NOT_SERVED; }
  AcEdCommand* lookupLocalCmd(const ACHAR*) override { return NOT_SERVED; }
  AcEdCommand* lookupCmd(const ACHAR*, bool) override { return NOT_SERVED; }
  AcEdCommand* lookupCmd(const ACHAR*, bool, bool) override { return NOT_SERVED; }
  AcEdCommand* lookupCmd(const ACHAR*, bool, bool, bool) override { return NOT_SERVED; }
  AcEdCommand* lookupCmd2(const ACHAR*, bool, bool, int, bool) override { return NOT_SERVED; }
  Acad::ErrorStatus popGroupToTop(const ACHAR*) override { return NOT_SERVED; }
  Acad::ErrorStatus removeCmd(const ACHAR*, const ACHAR*) override { return NOT_SERVED; }
};

class NotServedAcDbLayoutManager : public AcDbLayoutManager {
 public:
  Acad::ErrorStatus setCurrentLayout(const ACHAR*) override { return NOT_SERVED; }
  Acad::ErrorStatus setCurrentLayoutId(AcDbObjectId) override { return NOT_SERVED; }
  AcDbObjectId getActiveLayoutBTRId() override { return NOT_SERVED; }
  AcDbLayout* findLayoutNamed(const ACHAR*, bool) override { return NOT_SERVED; }
  Acad::ErrorStatus copyLayout(const ACHAR*, const ACHAR*) override { return NOT_SERVED; }
  Acad::ErrorStatus deleteLayout(const ACHAR*) override { return NOT_SERVED; }
  Acad::ErrorStatus createLayout(const ACHAR*, AcDbObjectId&, AcDbObjectId&,
                                 AcDbDatabase*) override {
    return NOT_SERVED;
  }
  Acad::ErrorStatus renameLayout(const ACHAR*, const ACHAR*) override { return NOT_SERVED; }
  Acad::ErrorStatus cloneLayout(AcDbLayout*, const ACHAR*, int) override { return NOT_SERVED; }
  AcDbObjectId getNonRectVPIdFromClipId(AcDbObjectId) override { return NOT_SERVED; }
  bool isVpnumClipped(int) override { return NOT_SERVED; }
  int countLayouts(AcDbDatabase*) override { return NOT_SERVED; }
  void addReactor(AcDbLayoutManagerReactor*) override { NOT_SERVED; }
  void removeReactor(AcDbLayoutManagerReactor*) override { NOT_SERVED; }
};

class NotServedAcDbHostApplicationServices : public AcDbHostApplicationServices {
 public:
  Acad::ErrorStatus findFile(ACHAR*, int, const ACHAR*, AcDbDatabase*, FindFileHint) override {
    return NOT_SERVED;
  }
};

}  // namespace wb
