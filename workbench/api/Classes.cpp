// The descriptions of the host's classes, and the constructors and destructors that have nothing to
// do.
#include <windows.h>

#include <accmd.h>
#include <acdocman.h>
#include <aced.h>
#include <appinfo.h>
#include <dbapserv.h>
#include <dbents.h>
#include <dblayout.h>
#include <dbsymtb.h>

#include "database/Classes.h"
#include "gate/HostCall.h"

using namespace wb;

/// Implements what ACRX_DECLARE_MEMBERS declares. The descriptions are made while the library
/// loads, so that the "ClassDictionary" is complete before any application can ask it. They belong
/// to the process, as the classes do. These calls can't fail.
#define DEFINE_RX_CLASS(CLASS, PARENT)                                              \
  AcRxClass* CLASS::desc() {                                                        \
    const HostCall call(THIS_FUNCTION);                                             \
    static AcRxClass* const description = AcRxClassImp::define(L## #CLASS, PARENT); \
    return description;                                                             \
  }                                                                                 \
  AcRxClass* CLASS::isA() const {                                                   \
    const HostCall call(THIS_FUNCTION);                                             \
    return CLASS::desc();                                                           \
  }                                                                                 \
  namespace {                                                                       \
  [[maybe_unused]] AcRxClass* const CLASS##Description = CLASS::desc();             \
  }

/// The same for a class of objects in a drawing.
#define DEFINE_DB_CLASS(CLASS, PARENT)   \
  DEFINE_RX_CLASS(CLASS, PARENT::desc()) \
  CLASS::CLASS() = default;              \
  CLASS::~CLASS() = default;

DEFINE_RX_CLASS(AcRxObject, nullptr)
DEFINE_RX_CLASS(AcRxClass, AcRxObject::desc())
DEFINE_RX_CLASS(AcRxDictionary, AcRxObject::desc())
DEFINE_RX_CLASS(AcRxDynamicLinker, AcRxObject::desc())
DEFINE_RX_CLASS(AcRxEvent, AcRxObject::desc())
DEFINE_RX_CLASS(AcRxEventReactor, AcRxObject::desc())
DEFINE_RX_CLASS(AcEditor, AcRxEvent::desc())
DEFINE_RX_CLASS(AcEditorReactor, AcRxEventReactor::desc())
DEFINE_RX_CLASS(AcEdCommandStack, AcRxObject::desc())
DEFINE_RX_CLASS(AcEdUIContext, AcRxObject::desc())
DEFINE_RX_CLASS(AcadAppInfo, AcRxObject::desc())
DEFINE_RX_CLASS(AcApDocument, AcRxObject::desc())
DEFINE_RX_CLASS(AcApDocumentIterator, AcRxObject::desc())
DEFINE_RX_CLASS(AcApDocManager, AcRxObject::desc())
DEFINE_RX_CLASS(AcApDocManagerReactor, AcRxObject::desc())
DEFINE_RX_CLASS(AcDbHostApplicationServices, AcRxObject::desc())
DEFINE_RX_CLASS(AcDbDatabase, AcRxObject::desc())
DEFINE_RX_CLASS(AcGiDrawable, AcRxObject::desc())
DEFINE_RX_CLASS(AcDbObjectIterator, AcRxObject::desc())
DEFINE_DB_CLASS(AcDbObject, AcGiDrawable)
DEFINE_DB_CLASS(AcDbSymbolTable, AcDbObject)
DEFINE_DB_CLASS(AcDbSymbolTableRecord, AcDbObject)
DEFINE_DB_CLASS(AcDbBlockTable, AcDbSymbolTable)
DEFINE_DB_CLASS(AcDbBlockTableRecord, AcDbSymbolTableRecord)
DEFINE_DB_CLASS(AcDbLayout, AcDbObject)
DEFINE_DB_CLASS(AcDbEntity, AcDbObject)
DEFINE_DB_CLASS(AcDbBlockReference, AcDbEntity)
DEFINE_DB_CLASS(AcDbText, AcDbEntity)
DEFINE_DB_CLASS(AcDbAttribute, AcDbText)

AcRxObject::AcRxObject() { const HostCall call(THIS_FUNCTION); }
AcGiDrawable::AcGiDrawable() = default;
AcDbDatabase::AcDbDatabase() = default;
