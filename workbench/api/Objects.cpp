#include <dbents.h>

#include <functional>

#include "database/Objects.h"
#include "gate/HostCall.h"

using wb::HostCall;

bool c5ObjIdIsLessThan(const AcDbStub* first, const AcDbStub* second) {
  return HostCall(L"host.c5ObjIdIsLessThan").run(false, [&] {
    return std::less<>()(first, second);
  });
}

// The host returns both ids of an object that isn't open as well.
AcDbObjectId AcDbObject::objectId() const {
  return HostCall(L"AcDbObject.objectId").run(AcDbObjectId(), [&] { return imp->id; });
}

AcDbObjectId AcDbObject::ownerId() const {
  return HostCall(L"AcDbObject.ownerId").run(AcDbObjectId(), [&] {
    return AcDbObjectImp::read(this, L"AcDbObject::ownerId").owner;
  });
}

Acad::ErrorStatus AcDbObject::close() {
  return HostCall(L"AcDbObject.close").run(Acad::eWasErased, [&] {
    imp->close();
    return Acad::eOk;
  });
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
  pObj = nullptr;
  return HostCall(L"host.acdbOpenAcDbObject", HostCall::swept).run(Acad::eWasErased, [&] {
    if (id.isNull()) return Acad::eNullObjectId;
    AcDbObjectImp* const imp = AcDbObjectImp::find(id);
    if (!imp) return Acad::ePermanentlyErased;
    imp->open(mode, openErased);
    pObj = imp->object();
    return Acad::eOk;
  });
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                     const AcRxClass* pClass, bool openErased) {
  pObj = nullptr;
  const HostCall call(L"host.acdbOpenAcDbObjectOfClass");
  const AcDbObjectImp* imp = AcDbObjectImp::find(id);
  if (imp && pClass && !imp->object()->isKindOf(pClass)) return Acad::eNotThatKindOfClass;
  return acdbOpenAcDbObject(pObj, id, mode, openErased);
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName) {
  objId.setNull();
  return HostCall(L"host.acdbGetObjectId").run(Acad::eInvalidAdsName, [&] {
    AcDbObjectId id;
    id.setFromOldId(objName[0]);
    const AcDbObjectImp* imp = objName[1] == 0 ? AcDbObjectImp::find(id) : nullptr;
    if (!imp || !imp->object()->isKindOf(AcDbEntity::desc())) return Acad::eInvalidAdsName;
    objId = id;
    return Acad::eOk;
  });
}
