#include "database/Classes.h"

#include <vector>

#include "core/Text.h"
#include "gate/HostCall.h"

using wb::HostCall;

namespace {

// The classes' descriptions belong to the process: they are made while the library loads.
std::vector<AcRxClass*>& classes() {
  static std::vector<AcRxClass*> all;
  return all;
}

}  // namespace

AcRxClass* AcRxClassImp::define(const ACHAR* name, AcRxClass* parent) {
  classes().push_back(new AcRxClassImp(name, parent));
  return classes().back();
}

const ACHAR* AcRxClassImp::name() const {
  return HostCall(L"AcRxClass.name").run<const ACHAR*>(nullptr, [&] { return name_; });
}

AcRxClass* AcRxClassImp::myParent() const {
  return HostCall(L"AcRxClass.myParent").run<AcRxClass*>(nullptr, [&] { return parent_; });
}

bool AcRxClassImp::isDerivedFrom(const AcRxClass* parent) const {
  return HostCall(L"AcRxClass.isDerivedFrom").run(false, [&] {
    const AcRxClass* one = this;
    while (one && one != parent) one = static_cast<const AcRxClassImp*>(one)->parent_;
    return one != nullptr;
  });
}

AcRxClass* AcRxClassImp::find(std::wstring_view name) {
  for (AcRxClass* one : classes()) {
    if (wb::sameName(one->name(), name)) return one;
  }
  return nullptr;
}
