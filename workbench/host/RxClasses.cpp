#include "host/RxClasses.h"

#include <windows.h>

#include <accmd.h>
#include <acdocman.h>
#include <aced.h>
#include <appinfo.h>
#include <dbapserv.h>
#include <dbid.h>
#include <rxdict.h>
#include <rxdlinkr.h>

#include "core/StandInTime.h"

#include <vector>

namespace {

std::vector<AcRxClass*>& classes() {
  static std::vector<AcRxClass*> all;
  return all;
}

}  // namespace

AcRxClass* AcRxClassImp::define(const ACHAR* name, AcRxClass* parent) {
  classes().push_back(new AcRxClass(name, parent));
  return classes().back();
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

bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
  const wb::InStandIn inside;
  return isA()->isDerivedFrom(aClass);
}

const ACHAR* AcRxClass::name() const { return name_; }

AcRxClass* AcRxClass::myParent() const { return parent_; }

bool AcRxClass::isDerivedFrom(const AcRxClass* parent) const {
  for (const AcRxClass* one = this; one; one = one->parent_) {
    if (one == parent) return true;
  }
  return false;
}

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

const AcDbObjectId AcDbObjectId::kNull;

void AcRxEventReactor::saveComplete(AcDbDatabase*, const ACHAR*) {}

void* AcEdUIContext::getMenuContext(const AcRxClass* pClass, const AcDbObjectIdArray& ids,
                                    const AcDbFullSubentPathArray&) {
  return getMenuContext(pClass, ids);
}

void AcEdUIContext::OnUpdateMenu() {}

void AcApDocManagerReactor::documentCreateStarted(AcApDocument*) {}
void AcApDocManagerReactor::documentCreated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument*) {}
void AcApDocManagerReactor::documentDestroyed(const ACHAR*) {}
void AcApDocManagerReactor::documentCreateCanceled(AcApDocument*) {}
void AcApDocManagerReactor::documentLockModeWillChange(AcApDocument*, AcAp::DocLockMode,
                                                       AcAp::DocLockMode, AcAp::DocLockMode,
                                                       const ACHAR*) {}
void AcApDocManagerReactor::documentLockModeChangeVetoed(AcApDocument*, const ACHAR*) {}
void AcApDocManagerReactor::documentLockModeChanged(AcApDocument*, AcAp::DocLockMode,
                                                    AcAp::DocLockMode, AcAp::DocLockMode,
                                                    const ACHAR*) {}
void AcApDocManagerReactor::documentBecameCurrent(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDeactivated(AcApDocument*) {}
void AcApDocManagerReactor::documentActivationModified(bool) {}
void AcApDocManagerReactor::documentActivated(AcApDocument*) {}
