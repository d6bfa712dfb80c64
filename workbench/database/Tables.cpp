#include <acutmem.h>

#include "core/StandInTime.h"
#include "database/Classes.h"
#include "database/Database.h"
#include "database/Objects.h"
#include "faults/Faults.h"

using wb::BlockRecordImp;

WB_DEFINE_RX_CLASS(AcDbSymbolTable, AcDbObject)
WB_DEFINE_RX_CLASS(AcDbSymbolTableRecord, AcDbObject)
WB_DEFINE_RX_CLASS(AcDbBlockTable, AcDbSymbolTable)
WB_DEFINE_RX_CLASS(AcDbBlockTableRecord, AcDbSymbolTableRecord)
WB_DEFINE_RX_CLASS(AcDbLayout, AcDbObject)

AcDbSymbolTable::AcDbSymbolTable() = default;
AcDbSymbolTable::~AcDbSymbolTable() = default;
AcDbSymbolTableRecord::AcDbSymbolTableRecord() = default;
AcDbSymbolTableRecord::~AcDbSymbolTableRecord() = default;
AcDbBlockTable::AcDbBlockTable() = default;
AcDbBlockTable::~AcDbBlockTable() = default;
AcDbBlockTableRecord::AcDbBlockTableRecord() = default;
AcDbBlockTableRecord::~AcDbBlockTableRecord() = default;
AcDbLayout::AcDbLayout() = default;
AcDbLayout::~AcDbLayout() = default;

namespace {

// Every record of this host is a block's.
const BlockRecordImp* record(const AcDbObject* object, const wchar_t* operation) {
  return static_cast<const BlockRecordImp*>(AcDbObjectImp::read(object, operation));
}

Acad::ErrorStatus copyOut(const std::wstring& text, ACHAR*& copy) {
  return acutNewString(text.c_str(), copy);
}

}  // namespace

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& pName) const {
  const wb::InStandIn inside;
  pName = nullptr;
  const BlockRecordImp* imp = record(this, L"AcDbSymbolTableRecord::getName");
  return imp ? copyOut(imp->blockName, pName) : Acad::eNotOpenForRead;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& pName) const {
  const wb::InStandIn inside;
  const BlockRecordImp* imp = record(this, L"AcDbSymbolTableRecord::getName");
  pName = imp ? imp->blockName.c_str() : nullptr;
  return imp ? Acad::eOk : Acad::eNotOpenForRead;
}

Acad::ErrorStatus AcDbBlockTableRecord::pathName(ACHAR*& pPath) const {
  const wb::InStandIn inside;
  pPath = nullptr;
  const BlockRecordImp* imp = record(this, L"AcDbBlockTableRecord::pathName");
  return imp ? copyOut(imp->path, pPath) : Acad::eNotOpenForRead;
}

Acad::ErrorStatus AcDbBlockTableRecord::pathName(const ACHAR*& pPath) const {
  const wb::InStandIn inside;
  const BlockRecordImp* imp = record(this, L"AcDbBlockTableRecord::pathName");
  pPath = imp ? imp->path.c_str() : nullptr;
  return imp ? Acad::eOk : Acad::eNotOpenForRead;
}

bool AcDbBlockTableRecord::isFromExternalReference() const {
  const wb::InStandIn inside;
  const BlockRecordImp* imp = record(this, L"AcDbBlockTableRecord::isFromExternalReference");
  return imp && imp->isXref;
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
  const wb::InStandIn inside;
  const BlockRecordImp* imp = record(this, L"AcDbBlockTableRecord::hasAttributeDefinitions");
  return imp && imp->hasAttributeDefinitions;
}

AcDbObjectId AcDbBlockTableRecord::getLayoutId() const {
  const wb::InStandIn inside;
  const BlockRecordImp* imp = record(this, L"AcDbBlockTableRecord::getLayoutId");
  return imp ? imp->layout : AcDbObjectId();
}

Acad::ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbObjectId& recordId,
                                        bool getErasedRec) const {
  recordId.setNull();
  const AcDbObjectImp* imp = AcDbObjectImp::read(this, L"AcDbBlockTable::getAt");
  if (!imp) return Acad::eNotOpenForRead;
  if (!entryName || FAILED(wb::takeFault(L"AcDbBlockTable.getAt"))) return Acad::eInvalidInput;
  const BlockRecordImp* found = imp->database.findRecord(entryName);
  if (!found) return Acad::eKeyNotFound;
  if (found->erased && !getErasedRec) return Acad::eWasErased;
  recordId = found->id;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbBlockTableRecord*& pRec,
                                        AcDb::OpenMode openMode, bool openErasedRec) const {
  pRec = nullptr;
  AcDbObjectId id;
  const Acad::ErrorStatus status = getAt(entryName, id, openErasedRec);
  return status == Acad::eOk ? acdbOpenObject(pRec, id, openMode, openErasedRec) : status;
}

Acad::ErrorStatus AcDbLayout::getLayoutName(ACHAR*& pLayoutName) const {
  const wb::InStandIn inside;
  pLayoutName = nullptr;
  const auto* imp =
      static_cast<const wb::LayoutImp*>(AcDbObjectImp::read(this, L"AcDbLayout::getLayoutName"));
  return imp ? copyOut(imp->layoutName, pLayoutName) : Acad::eNotOpenForRead;
}
