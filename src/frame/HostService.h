#pragma once

#include <rxclass.h>
#include <rxdict.h>
#include <rxobject.h>

namespace tessaro {

/// Finds a service of the host in acrxSysRegistry.
/// @return null if there is no such service, or it is of another class than `Service`
template <class Service>
Service* hostService(const ACHAR* name) {
  return Service::cast(acrxSysRegistry()->at(name));
}

/// The same, but the class is looked up by its name in the host's "ClassDictionary".
/// @return null if there is no such service or class, or the service is of another class
template <class Service>
Service* hostServiceOfClass(const ACHAR* name, const ACHAR* className) {
  AcRxObject* service = acrxSysRegistry()->at(name);
  const auto* classes = hostService<AcRxDictionary>(L"ClassDictionary");
  if (service == nullptr || classes == nullptr) return nullptr;
  const auto* expected = AcRxClass::cast(classes->at(className));
  return expected != nullptr && service->isKindOf(expected) ? static_cast<Service*>(service)
                                                            : nullptr;
}

}  // namespace tessaro
