#pragma once

#include <rxclass.h>
#include <rxdict.h>
#include <rxobject.h>

namespace tessaro {

/// The host's service `name` out of acrxSysRegistry, seen as `Service`.
/// @return null if there is no such service, or if it is of another class
template <class Service>
Service* hostService(const ACHAR* name) {
  return Service::cast(acrxSysRegistry()->at(name));
}

/// The same, checked against the class that the host's "ClassDictionary" holds under `className`
/// and not against the description that was linked in.
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
