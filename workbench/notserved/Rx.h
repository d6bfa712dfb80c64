#pragma once

#include <rxdlinkr.h>

#include "gate/NotServed.h"

namespace wb {

/// What this host doesn't serve of a class's description.
class NotServedClass : public AcRxClass {
 public:
  AcRx::Ordering comparedTo(const AcRxObject*) const override {
    return NotServed(L"AcRxClass.comparedTo");
  }
  AcRxObject* addX(AcRxClass*, AcRxObject*) override { return NotServed(L"AcRxClass.addX"); }
  AcRxObject* getX(const AcRxClass*) override { return NotServed(L"AcRxClass.getX"); }
  AcRxObject* delX(AcRxClass*) override { return NotServed(L"AcRxClass.delX"); }
  AcRxObject* queryX(const AcRxClass*) override { return NotServed(L"AcRxClass.queryX"); }
  AcRxObject* create() override { return NotServed(L"AcRxClass.create"); }
  const ACHAR* appName() const override { return NotServed(L"AcRxClass.appName"); }
  const ACHAR* dxfName() const override { return NotServed(L"AcRxClass.dxfName"); }
  void getClassVersion(int&, int&) const override { NotServed(L"AcRxClass.getClassVersion"); }
  int proxyFlags() const override { return NotServed(L"AcRxClass.proxyFlags"); }
  AppNameChangeFuncPtr appNameCallbackPtr() const override {
    return NotServed(L"AcRxClass.appNameCallbackPtr");
  }
};

/// What this host doesn't serve of a dictionary.
class NotServedDictionary : public AcRxDictionary {
 public:
  AcRxObject* at(const ACHAR*) const override { return NotServed(L"AcRxDictionary.at"); }
  AcRxObject* at(Adesk::UInt32) const override { return NotServed(L"AcRxDictionary.at"); }
  AcRxObject* atPut(const ACHAR*, AcRxObject*, Adesk::UInt32&) override {
    return NotServed(L"AcRxDictionary.atPut");
  }
  AcRxObject* atPut(Adesk::UInt32, AcRxObject*) override {
    return NotServed(L"AcRxDictionary.atPut");
  }
  Adesk::Boolean resetKey(const ACHAR*, const ACHAR*) override {
    return NotServed(L"AcRxDictionary.resetKey");
  }
  Adesk::Boolean resetKey(Adesk::UInt32, const ACHAR*) override {
    return NotServed(L"AcRxDictionary.resetKey");
  }
  Adesk::Boolean atKeyAndIdPut(const ACHAR*, Adesk::UInt32, AcRxObject*) override {
    return NotServed(L"AcRxDictionary.atKeyAndIdPut");
  }
  AcRxObject* remove(const ACHAR*) override { return NotServed(L"AcRxDictionary.remove"); }
  AcRxObject* remove(Adesk::UInt32) override { return NotServed(L"AcRxDictionary.remove"); }
  Adesk::Boolean has(const ACHAR*) const override { return NotServed(L"AcRxDictionary.has"); }
  Adesk::Boolean has(Adesk::UInt32) const override { return NotServed(L"AcRxDictionary.has"); }
  Adesk::UInt32 idAt(const ACHAR*) const override { return NotServed(L"AcRxDictionary.idAt"); }
  const ACHAR* keyAt(Adesk::UInt32) const override { return NotServed(L"AcRxDictionary.keyAt"); }
  Adesk::UInt32 numEntries() const override { return NotServed(L"AcRxDictionary.numEntries"); }
  AcRxDictionaryIterator* newIterator(AcRx::DictIterType) override {
    return NotServed(L"AcRxDictionary.newIterator");
  }
  Adesk::Boolean deletesObjects() const override {
    return NotServed(L"AcRxDictionary.deletesObjects");
  }
  Adesk::Boolean isCaseSensitive() const override {
    return NotServed(L"AcRxDictionary.isCaseSensitive");
  }
  Adesk::Boolean isSorted() const override { return NotServed(L"AcRxDictionary.isSorted"); }
};

/// What this host doesn't serve of the dynamic linker.
class NotServedLinker : public AcRxDynamicLinker {
 public:
  void* getSymbolAddress(const ACHAR*, const char*) const override {
    return NotServed(L"AcRxDynamicLinker.getSymbolAddress");
  }
  void* getSymbolAddress(const ACHAR*, const ACHAR*) const override {
    return NotServed(L"AcRxDynamicLinker.getSymbolAddress");
  }
  bool initListedModules(const ACHAR*) override {
    return NotServed(L"AcRxDynamicLinker.initListedModules");
  }
  bool loadModule(const ACHAR*, bool, bool) override {
    return NotServed(L"AcRxDynamicLinker.loadModule");
  }
  bool loadApp(const ACHAR*, AcadApp::LoadReasons, bool, bool) override {
    return NotServed(L"AcRxDynamicLinker.loadApp");
  }
  AcRxObject* registerService(const ACHAR*, AcRxService*) override {
    return NotServed(L"AcRxDynamicLinker.registerService");
  }
  bool unloadModule(const ACHAR*, bool) override {
    return NotServed(L"AcRxDynamicLinker.unloadModule");
  }
  bool unloadApp(const ACHAR*, bool) override { return NotServed(L"AcRxDynamicLinker.unloadApp"); }
  void addReactor(AcRxDLinkerReactor*) override { NotServed(L"AcRxDynamicLinker.addReactor"); }
  void removeReactor(AcRxDLinkerReactor*) override {
    NotServed(L"AcRxDynamicLinker.removeReactor");
  }
  bool isApplicationLocked(const ACHAR*) const override {
    return NotServed(L"AcRxDynamicLinker.isApplicationLocked");
  }
  bool isAppMDIAware(const ACHAR*) const override {
    return NotServed(L"AcRxDynamicLinker.isAppMDIAware");
  }
  bool isAppBusy(const ACHAR*) const override { return NotServed(L"AcRxDynamicLinker.isAppBusy"); }
  void setAppBusy(const ACHAR*, bool) const override { NotServed(L"AcRxDynamicLinker.setAppBusy"); }
  const ACHAR* ProductKey() const override { return NotServed(L"AcRxDynamicLinker.ProductKey"); }
  Adesk::UInt32 ProductLcid() const override { return NotServed(L"AcRxDynamicLinker.ProductLcid"); }
};

}  // namespace wb
