#include <accmd.h>
#include <aced.h>
#include <rxregsvc.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "core/SessionState.h"
#include "core/Text.h"
#include "database/Classes.h"
#include "editor/Host.h"
#include "gate/HostCall.h"

using namespace wb;

namespace {

/// A dictionary in which applications look for a key.
class Dictionary : public NotServedAcRxDictionary {
 public:
  using Lookup = std::function<AcRxObject*(const ACHAR* key)>;
  /// @param take removes an entry; without it the entries are the host's own and stay
  explicit Dictionary(Lookup find, Lookup take = {})
      : find(std::move(find)), take(std::move(take)) {}

  using NotServedAcRxDictionary::at;
  using NotServedAcRxDictionary::remove;
  AcRxObject* at(const ACHAR* key) const override {
    return HostCall(L"AcRxDictionary.at").run<AcRxObject*>(nullptr, [&] {
      return key ? find(key) : nullptr;
    });
  }
  AcRxObject* remove(const ACHAR* key) override {
    return HostCall(L"AcRxDictionary.remove").run<AcRxObject*>(nullptr, [&] {
      return key && take ? take(key) : nullptr;
    });
  }

 private:
  Lookup find;
  Lookup take;
};

class DynamicLinker : public NotServedAcRxDynamicLinker {
 public:
  bool lockApplication(void* appId) const override {
    return set(L"AcRxDynamicLinker.lockApplication", appId, &Module::locked, true);
  }
  bool unlockApplication(void* appId) const override {
    return set(L"AcRxDynamicLinker.unlockApplication", appId, &Module::locked, false);
  }
  bool registerAppMDIAware(void* appId) const override {
    return set(L"AcRxDynamicLinker.registerAppMDIAware", appId, &Module::awareOfDocuments, true);
  }
  bool registerAppNotMDIAware(void* appId) const override {
    return set(L"AcRxDynamicLinker.registerAppNotMDIAware", appId, &Module::awareOfDocuments,
               false);
  }

 private:
  using Module = ModuleLoader::Module;
  /// @return false for an unknown application
  static bool set(const wchar_t* call, const void* appId, bool Module::* flag, bool value) {
    return HostCall(call).run(false, [&] {
      Module* module = Host::instance().modules().find(appId);
      if (module) module->*flag = value;
      return module != nullptr;
    });
  }
};

class Service : public AcRxObject {};

/// A session's registry, and what applications find in it.
struct SysRegistry {
  DynamicLinker linker;
  Dictionary classes{[](const ACHAR* key) { return AcRxClassImp::find(key); }};
  /// What applications register; they own none of what they take out.
  std::map<std::wstring, std::unique_ptr<AcRxObject>, LessIgnoringCase> services;
  Dictionary serviceDictionary{[this](const ACHAR* key) {
                                 const auto found = services.find(key);
                                 return found == services.end() ? nullptr : found->second.get();
                               },
                               [this](const ACHAR* key) {
                                 auto taken = services.extract(key);
                                 return taken ? taken.mapped().release() : nullptr;
                               }};
  Dictionary root{[this](const ACHAR* key) {
    const std::map<std::wstring, AcRxObject*, LessIgnoringCase> all{
        {L"ACAD_REGISTERED_COMMANDS", &Host::instance().commands()},
        {L"AcEditor", &Host::instance().editor()},
        {L"ClassDictionary", &classes},
        {L"ServiceDictionary", &serviceDictionary},
        {ACRX_DYNAMIC_LINKER, &linker}};
    const auto found = all.find(key);
    return found == all.end() ? nullptr : found->second;
  }};
};

}  // namespace

extern "C" AcRxDictionary* acrxSysRegistry() {
  const HostCall call(THIS_FUNCTION);
  return &sessionPart<SysRegistry>().root;
}

void* acrxRegisterService(const ACHAR* name) {
  return HostCall(THIS_FUNCTION).run<void*>(nullptr, [&]() -> void* {
    if (!name || !*name) return nullptr;
    auto& service = sessionPart<SysRegistry>().services[name];
    if (!service) service = std::make_unique<Service>();
    return service.get();
  });
}
