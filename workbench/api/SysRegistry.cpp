#include <accmd.h>
#include <aced.h>
#include <rxregsvc.h>

#include <map>
#include <memory>
#include <string>

#include "core/SessionState.h"
#include "core/Text.h"
#include "database/Classes.h"
#include "editor/Host.h"
#include "gate/HostCall.h"

using wb::HostCall;

namespace {

/// A dictionary in which applications look for a key.
class Dictionary : public wb::NotServedAcRxDictionary {
 public:
  using NotServedAcRxDictionary::at;
  using NotServedAcRxDictionary::remove;
  AcRxObject* at(const ACHAR* key) const override {
    return HostCall(L"AcRxDictionary.at").run<AcRxObject*>(nullptr, [&] {
      return key ? find(key) : nullptr;
    });
  }
  AcRxObject* remove(const ACHAR* key) override {
    return HostCall(L"AcRxDictionary.remove").run<AcRxObject*>(nullptr, [&] {
      return key ? take(key) : nullptr;
    });
  }

 private:
  virtual AcRxObject* find(const ACHAR* key) const = 0;
  /// Classes and services of the host's own can't be taken away.
  virtual AcRxObject* take(const ACHAR*) { return nullptr; }
};

/// The services that applications register; they own none of what they take out.
class ServiceDictionary : public Dictionary {
 public:
  AcRxObject* add(const ACHAR* key) {
    return services.emplace(key, std::make_unique<Service>()).first->second.get();
  }

 private:
  class Service : public AcRxObject {};
  AcRxObject* find(const ACHAR* key) const override {
    const auto found = services.find(key);
    return found == services.end() ? nullptr : found->second.get();
  }
  AcRxObject* take(const ACHAR* key) override {
    auto taken = services.extract(key);
    return taken ? taken.mapped().release() : nullptr;
  }
  std::map<std::wstring, std::unique_ptr<AcRxObject>, wb::LessIgnoringCase> services;
};

class ClassDictionary : public Dictionary {
  AcRxObject* find(const ACHAR* key) const override { return AcRxClassImp::find(key); }
};

class DynamicLinker : public wb::NotServedAcRxDynamicLinker {
 public:
  bool lockApplication(void* appId) const override {
    return HostCall(L"AcRxDynamicLinker.lockApplication").run(false, [&] {
      return modules().setLocked(appId, true);
    });
  }
  bool unlockApplication(void* appId) const override {
    return HostCall(L"AcRxDynamicLinker.unlockApplication").run(false, [&] {
      return modules().setLocked(appId, false);
    });
  }
  bool registerAppMDIAware(void* appId) const override {
    return HostCall(L"AcRxDynamicLinker.registerAppMDIAware").run(false, [&] {
      return modules().setAwareOfDocuments(appId, true);
    });
  }
  bool registerAppNotMDIAware(void* appId) const override {
    return HostCall(L"AcRxDynamicLinker.registerAppNotMDIAware").run(false, [&] {
      return modules().setAwareOfDocuments(appId, false);
    });
  }

 private:
  static wb::ModuleLoader& modules() { return wb::Host::instance().modules(); }
};

class SysRegistry : public Dictionary {
 public:
  ServiceDictionary& services() { return services_; }

 private:
  AcRxObject* find(const ACHAR* key) const override {
    const struct {
      const wchar_t* name;
      AcRxObject* service;
    } all[] = {{L"ACAD_REGISTERED_COMMANDS", &wb::Host::instance().commands()},
               {L"AcEditor", &wb::Host::instance().editor()},
               {L"ClassDictionary", &classes},
               {L"ServiceDictionary", &services_},
               {ACRX_DYNAMIC_LINKER, &linker}};
    for (const auto& one : all) {
      if (wb::sameName(key, one.name)) return one.service;
    }
    return nullptr;
  }

  mutable ClassDictionary classes;
  mutable ServiceDictionary services_;
  mutable DynamicLinker linker;
};

}  // namespace

extern "C" AcRxDictionary* acrxSysRegistry() {
  const HostCall call(THIS_FUNCTION);
  return &wb::sessionPart<SysRegistry>();
}

void* acrxRegisterService(const ACHAR* name) {
  return HostCall(THIS_FUNCTION).run<void*>(nullptr, [&] {
    return name && *name ? wb::sessionPart<SysRegistry>().services().add(name) : nullptr;
  });
}
