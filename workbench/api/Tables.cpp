#include <acutmem.h>
#include <dbents.h>

#include "database/Database.h"
#include "database/Objects.h"
#include "gate/HostCall.h"

using wb::BlockRecordImp;
using wb::HostCall;

namespace {

// Every record of this host is a block's.
const BlockRecordImp& record(const AcDbObject* object, const wchar_t* operation) {
  return AcDbObjectImp::read<BlockRecordImp>(object, operation);
}

}  // namespace

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode) {
  pTable = nullptr;
  return HostCall(L"AcDbDatabase.getSymbolTable").run(Acad::eNotOpenForRead, [&] {
    return acdbOpenObject(pTable, wb::DrawingDatabase::of(*this).blockTable().id, mode);
  });
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& pName) const {
  pName = nullptr;
  return HostCall(L"AcDbSymbolTableRecord.getName").run(Acad::eNotOpenForRead, [&] {
    const BlockRecordImp& imp = record(this, L"AcDbSymbolTableRecord::getName");
    return acutNewString(imp.blockName.c_str(), pName);
  });
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& pName) const {
  pName = nullptr;
  return HostCall(L"AcDbSymbolTableRecord.getName").run(Acad::eNotOpenForRead, [&] {
    pName = record(this, L"AcDbSymbolTableRecord::getName").blockName.c_str();
    return Acad::eOk;
  });
}

Acad::ErrorStatus AcDbBlockTableRecord::pathName(ACHAR*& pPath) const {
  pPath = nullptr;
  return HostCall(L"AcDbBlockTableRecord.pathName").run(Acad::eNotOpenForRead, [&] {
    const BlockRecordImp& imp = record(this, L"AcDbBlockTableRecord::pathName");
    return acutNewString(imp.path.c_str(), pPath);
  });
}

Acad::ErrorStatus AcDbBlockTableRecord::pathName(const ACHAR*& pPath) const {
  pPath = nullptr;
  return HostCall(L"AcDbBlockTableRecord.pathName").run(Acad::eNotOpenForRead, [&] {
    pPath = record(this, L"AcDbBlockTableRecord::pathName").path.c_str();
    return Acad::eOk;
  });
}

bool AcDbBlockTableRecord::isFromExternalReference() const {
  return HostCall(L"AcDbBlockTableRecord.isFromExternalReference").run(false, [&] {
    return record(this, L"AcDbBlockTableRecord::isFromExternalReference").isXref;
  });
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
  return HostCall(L"AcDbBlockTableRecord.hasAttributeDefinitions").run(false, [&] {
    return record(this, L"AcDbBlockTableRecord::hasAttributeDefinitions").hasAttributeDefinitions;
  });
}

AcDbObjectId AcDbBlockTableRecord::getLayoutId() const {
  return HostCall(L"AcDbBlockTableRecord.getLayoutId").run(AcDbObjectId(), [&] {
    return record(this, L"AcDbBlockTableRecord::getLayoutId").layout;
  });
}

Acad::ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbObjectId& recordId,
                                        bool getErasedRec) const {
  recordId.setNull();
  return HostCall(L"AcDbBlockTable.getAt", HostCall::swept).run(Acad::eInvalidInput, [&] {
    const AcDbObjectImp& imp = AcDbObjectImp::read(this, L"AcDbBlockTable::getAt");
    if (!entryName) return Acad::eInvalidInput;
    const BlockRecordImp* found = imp.database.findRecord(entryName);
    if (!found) return Acad::eKeyNotFound;
    if (found->erased && !getErasedRec) return Acad::eWasErased;
    recordId = found->id;
    return Acad::eOk;
  });
}

Acad::ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbBlockTableRecord*& pRec,
                                        AcDb::OpenMode openMode, bool openErasedRec) const {
  pRec = nullptr;
  const wb::InStandIn inside;
  AcDbObjectId id;
  // The other getAt is the gate.
  const Acad::ErrorStatus status = getAt(entryName, id, openErasedRec);
  return status == Acad::eOk ? acdbOpenObject(pRec, id, openMode, openErasedRec) : status;
}

Acad::ErrorStatus AcDbLayout::getLayoutName(ACHAR*& pLayoutName) const {
  pLayoutName = nullptr;
  return HostCall(L"AcDbLayout.getLayoutName").run(Acad::eNotOpenForRead, [&] {
    const auto& imp = AcDbObjectImp::read<wb::LayoutImp>(this, L"AcDbLayout::getLayoutName");
    return acutNewString(imp.layoutName.c_str(), pLayoutName);
  });
}
