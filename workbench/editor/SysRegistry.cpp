#include "editor/SysRegistry.h"

#include <accmd.h>
#include <aced.h>
#include <rxregsvc.h>

#include <map>
#include <memory>
#include <string>

#include "core/Names.h"
#include "database/Classes.h"
#include "editor/CommandStack.h"
#include "editor/Editor.h"
#include "editor/Host.h"
#include "editor/ModuleLoader.h"

namespace {

struct LessIgnoringCase {
  bool operator()(const std::wstring& a, const std::wstring& b) const {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_LESS_THAN;
  }
};

/// The services that applications register; they own none of what they take out.
class ServiceDictionary : public wb::NotServedDictionary {
 public:
  using NotServedDictionary::at;
  using NotServedDictionary::remove;
  AcRxObject* at(const ACHAR* key) const override {
    const auto found = key ? services.find(key) : services.end();
    return found == services.end() ? nullptr : found->second.get();
  }
  AcRxObject* remove(const ACHAR* key) override {
    const auto found = key ? services.find(key) : services.end();
    if (found == services.end()) return nullptr;
    AcRxObject* service = found->second.release();
    services.erase(found);
    return service;
  }
  AcRxObject* add(const ACHAR* key) {
    return services.emplace(key, std::make_unique<Service>()).first->second.get();
  }
  void clear() { services.clear(); }

 private:
  class Service : public AcRxObject {};
  std::map<std::wstring, std::unique_ptr<AcRxObject>, LessIgnoringCase> services;
};

class ClassDictionary : public wb::NotServedDictionary {
 public:
  using NotServedDictionary::at;
  using NotServedDictionary::remove;
  AcRxObject* at(const ACHAR* key) const override {
    return key ? AcRxClassImp::find(key) : nullptr;
  }
  // The editor's own classes can't be taken away.
  AcRxObject* remove(const ACHAR*) override { return nullptr; }
};

class DynamicLinker : public wb::NotServedLinker {
 public:
  bool lockApplication(void* appId) const override {
    return wb::Host::instance().modules().setLocked(appId, true);
  }
  bool unlockApplication(void* appId) const override {
    return wb::Host::instance().modules().setLocked(appId, false);
  }
  bool registerAppMDIAware(void* appId) const override {
    return wb::Host::instance().modules().setAwareOfDocuments(appId, true);
  }
  bool registerAppNotMDIAware(void* appId) const override {
    return wb::Host::instance().modules().setAwareOfDocuments(appId, false);
  }
};

ServiceDictionary& services() {
  static ServiceDictionary dictionary;
  return dictionary;
}

class SysRegistry : public wb::NotServedDictionary {
 public:
  using NotServedDictionary::at;
  using NotServedDictionary::remove;
  AcRxObject* at(const ACHAR* key) const override {
    static ClassDictionary classes;
    static DynamicLinker linker;
    if (!key) return nullptr;
    if (wb::sameName(key, L"ACAD_REGISTERED_COMMANDS")) return &wb::Host::instance().commands();
    if (wb::sameName(key, L"AcEditor")) return &wb::Host::instance().editor();
    if (wb::sameName(key, L"ClassDictionary")) return &classes;
    if (wb::sameName(key, L"ServiceDictionary")) return &services();
    if (wb::sameName(key, ACRX_DYNAMIC_LINKER)) return &linker;
    return nullptr;
  }
  AcRxObject* remove(const ACHAR*) override { return nullptr; }
};

}  // namespace

extern "C" AcRxDictionary* acrxSysRegistry() {
  static SysRegistry registry;
  return &registry;
}

void* acrxRegisterService(const ACHAR* name) {
  return name && *name ? services().add(name) : nullptr;
}

namespace wb {

void clearServices() { services().clear(); }

}  // namespace wb
