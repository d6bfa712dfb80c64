#include "database/Classes.h"

#include <windows.h>

#include <accmd.h>
#include <acdocman.h>
#include <aced.h>
#include <appinfo.h>
#include <dbapserv.h>

#include <vector>

namespace {

std::vector<AcRxClass*>& classes() {
  static std::vector<AcRxClass*> all;
  return all;
}

}  // namespace

AcRxClass* AcRxClassImp::define(const ACHAR* name, AcRxClass* parent) {
  classes().push_back(new AcRxClassImp(name, parent));
  return classes().back();
}

bool AcRxClassImp::isDerivedFrom(const AcRxClass* parent) const {
  for (const AcRxClass* one = this; one; one = one->myParent()) {
    if (one == parent) return true;
  }
  return false;
}

AcRxClass* AcRxClassImp::find(std::wstring_view name) {
  for (AcRxClass* one : classes()) {
    if (CompareStringOrdinal(one->name(), -1, name.data(), static_cast<int>(name.size()), TRUE) ==
        CSTR_EQUAL) {
      return one;
    }
  }
  return nullptr;
}

AcRxClass* AcRxObject::desc() {
  static AcRxClass* const description = AcRxClassImp::define(L"AcRxObject", nullptr);
  return description;
}

AcRxClass* AcRxObject::isA() const { return desc(); }

AcRxObject::AcRxObject() = default;

WB_DEFINE_RX_CLASS(AcRxClass, AcRxObject)
WB_DEFINE_RX_CLASS(AcRxDictionary, AcRxObject)
WB_DEFINE_RX_CLASS(AcRxDynamicLinker, AcRxObject)
WB_DEFINE_RX_CLASS(AcRxEvent, AcRxObject)
WB_DEFINE_RX_CLASS(AcRxEventReactor, AcRxObject)
WB_DEFINE_RX_CLASS(AcEditor, AcRxEvent)
WB_DEFINE_RX_CLASS(AcEditorReactor, AcRxEventReactor)
WB_DEFINE_RX_CLASS(AcEdCommandStack, AcRxObject)
WB_DEFINE_RX_CLASS(AcEdUIContext, AcRxObject)
WB_DEFINE_RX_CLASS(AcadAppInfo, AcRxObject)
WB_DEFINE_RX_CLASS(AcApDocument, AcRxObject)
WB_DEFINE_RX_CLASS(AcApDocumentIterator, AcRxObject)
WB_DEFINE_RX_CLASS(AcApDocManager, AcRxObject)
WB_DEFINE_RX_CLASS(AcApDocManagerReactor, AcRxObject)
WB_DEFINE_RX_CLASS(AcDbHostApplicationServices, AcRxObject)
