#pragma once

#include <accmd.h>
#include <acdblmgr.h>
#include <acdocman.h>

#include "gate/NotServed.h"

namespace wb {

/// What this host doesn't serve of a document.
class NotServedDocument : public AcApDocument {
 public:
  CDocument* cDoc() const override { return NotServed(L"AcApDocument.cDoc"); }
  AcTransactionManager* transactionManager() const override {
    return NotServed(L"AcApDocument.transactionManager");
  }
  SaveFormat formatForSave() const override { return NotServed(L"AcApDocument.formatForSave"); }
  AcAp::DocLockMode myLockMode() const override { return NotServed(L"AcApDocument.myLockMode"); }
  bool isQuiescent() const override { return NotServed(L"AcApDocument.isQuiescent"); }
  void* contextPtr() const override { return NotServed(L"AcApDocument.contextPtr"); }
  AcEdInputPointManager* inputPointManager() override {
    return NotServed(L"AcApDocument.inputPointManager");
  }
  const ACHAR* docTitle() const override { return NotServed(L"AcApDocument.docTitle"); }
  IDispatch* GetIDispatch(bool) override { return NotServed(L"AcApDocument.GetIDispatch"); }
  int GetCountOfLispList() const override { return NotServed(L"AcApDocument.GetCountOfLispList"); }
  AcLispAppInfo* GetItemOfLispList(int) const override {
    return NotServed(L"AcApDocument.GetItemOfLispList");
  }
  AcApStatusBar* drawingStatusBar() const override {
    return NotServed(L"AcApDocument.drawingStatusBar");
  }
};

/// What this host doesn't serve of the document manager.
class NotServedDocManager : public AcApDocManager {
 public:
  Acad::ErrorStatus lockDocument(AcApDocument*, AcAp::DocLockMode, const ACHAR*, const ACHAR*,
                                 bool) override {
    return NotServed(L"AcApDocManager.lockDocument");
  }
  Acad::ErrorStatus unlockDocument(AcApDocument*) override {
    return NotServed(L"AcApDocManager.unlockDocument");
  }
  Acad::ErrorStatus setDefaultFormatForSave(AcApDocument::SaveFormat) override {
    return NotServed(L"AcApDocManager.setDefaultFormatForSave");
  }
  Acad::ErrorStatus setCurDocument(AcApDocument*, AcAp::DocLockMode, bool) override {
    return NotServed(L"AcApDocManager.setCurDocument");
  }
  Acad::ErrorStatus activateDocument(AcApDocument*, bool) override {
    return NotServed(L"AcApDocManager.activateDocument");
  }
  Acad::ErrorStatus newDocument() override { return NotServed(L"AcApDocManager.newDocument"); }
  Acad::ErrorStatus openDocument() override { return NotServed(L"AcApDocManager.openDocument"); }
  int inputPending(AcApDocument*) override { return NotServed(L"AcApDocManager.inputPending"); }
  Acad::ErrorStatus disableDocumentActivation() override {
    return NotServed(L"AcApDocManager.disableDocumentActivation");
  }
  Acad::ErrorStatus enableDocumentActivation() override {
    return NotServed(L"AcApDocManager.enableDocumentActivation");
  }
  bool isDocumentActivationEnabled() override {
    return NotServed(L"AcApDocManager.isDocumentActivationEnabled");
  }
  int documentCount() const override { return NotServed(L"AcApDocManager.documentCount"); }
  void pushResourceHandle(HINSTANCE) override { NotServed(L"AcApDocManager.pushResourceHandle"); }
  void pushAcadResourceHandle() override { NotServed(L"AcApDocManager.pushAcadResourceHandle"); }
  void popResourceHandle() override { NotServed(L"AcApDocManager.popResourceHandle"); }
  Acad::ErrorStatus sendModelessInterrupt(AcApDocument*) override {
    return NotServed(L"AcApDocManager.sendModelessInterrupt");
  }
};

/// What this host doesn't serve of the command stack.
class NotServedCommandStack : public AcEdCommandStack {
 public:
  bool atPut(const ACHAR*, AcRxDictionary*&, AcRxDictionary*&) override {
    return NotServed(L"AcEdCommandStack.atPut");
  }
  AcEdCommandIterator* iterator() override { return NotServed(L"AcEdCommandStack.iterator"); }
  AcEdCommand* lookupGlobalCmd(const ACHAR*) override {
    return NotServed(L"AcEdCommandStack.lookupGlobalCmd");
  }
  AcEdCommand* lookupLocalCmd(const ACHAR*) override {
    return NotServed(L"AcEdCommandStack.lookupLocalCmd");
  }
  AcEdCommand* lookupCmd(const ACHAR*, bool) override {
    return NotServed(L"AcEdCommandStack.lookupCmd");
  }
  AcEdCommand* lookupCmd(const ACHAR*, bool, bool) override {
    return NotServed(L"AcEdCommandStack.lookupCmd");
  }
  AcEdCommand* lookupCmd(const ACHAR*, bool, bool, bool) override {
    return NotServed(L"AcEdCommandStack.lookupCmd");
  }
  AcEdCommand* lookupCmd2(const ACHAR*, bool, bool, int, bool) override {
    return NotServed(L"AcEdCommandStack.lookupCmd2");
  }
  Acad::ErrorStatus popGroupToTop(const ACHAR*) override {
    return NotServed(L"AcEdCommandStack.popGroupToTop");
  }
  Acad::ErrorStatus removeCmd(const ACHAR*, const ACHAR*) override {
    return NotServed(L"AcEdCommandStack.removeCmd");
  }
};

/// What this host doesn't serve of the layout manager.
class NotServedLayoutManager : public AcDbLayoutManager {
 public:
  Acad::ErrorStatus setCurrentLayout(const ACHAR*) override {
    return NotServed(L"AcDbLayoutManager.setCurrentLayout");
  }
  Acad::ErrorStatus setCurrentLayoutId(AcDbObjectId) override {
    return NotServed(L"AcDbLayoutManager.setCurrentLayoutId");
  }
  AcDbObjectId getActiveLayoutBTRId() override {
    return NotServed(L"AcDbLayoutManager.getActiveLayoutBTRId");
  }
  AcDbLayout* findLayoutNamed(const ACHAR*, bool) override {
    return NotServed(L"AcDbLayoutManager.findLayoutNamed");
  }
  Acad::ErrorStatus copyLayout(const ACHAR*, const ACHAR*) override {
    return NotServed(L"AcDbLayoutManager.copyLayout");
  }
  Acad::ErrorStatus deleteLayout(const ACHAR*) override {
    return NotServed(L"AcDbLayoutManager.deleteLayout");
  }
  Acad::ErrorStatus createLayout(const ACHAR*, AcDbObjectId&, AcDbObjectId&,
                                 AcDbDatabase*) override {
    return NotServed(L"AcDbLayoutManager.createLayout");
  }
  Acad::ErrorStatus renameLayout(const ACHAR*, const ACHAR*) override {
    return NotServed(L"AcDbLayoutManager.renameLayout");
  }
  Acad::ErrorStatus cloneLayout(AcDbLayout*, const ACHAR*, int) override {
    return NotServed(L"AcDbLayoutManager.cloneLayout");
  }
  AcDbObjectId getNonRectVPIdFromClipId(AcDbObjectId) override {
    return NotServed(L"AcDbLayoutManager.getNonRectVPIdFromClipId");
  }
  bool isVpnumClipped(int) override { return NotServed(L"AcDbLayoutManager.isVpnumClipped"); }
  int countLayouts(AcDbDatabase*) override { return NotServed(L"AcDbLayoutManager.countLayouts"); }
  void addReactor(AcDbLayoutManagerReactor*) override {
    NotServed(L"AcDbLayoutManager.addReactor");
  }
  void removeReactor(AcDbLayoutManagerReactor*) override {
    NotServed(L"AcDbLayoutManager.removeReactor");
  }
};

}  // namespace wb
