#include "database/Objects.h"

#include <functional>
#include <unordered_map>

#include "core/StandInTime.h"
#include "core/Transcript.h"
#include "database/Classes.h"
#include "database/Database.h"
#include "database/Drawing.h"
#include "faults/Faults.h"

namespace {

// Published as Acad::eWasOpenForNotify.
constexpr auto wasOpenForNotify = static_cast<Acad::ErrorStatus>(86);

std::unordered_map<Adesk::IntPtr, AcDbObjectImp*>& objects() {
  static std::unordered_map<Adesk::IntPtr, AcDbObjectImp*> all;
  return all;
}

// Never given twice, so that an id of a closed drawing finds nothing.
AcDbObjectId freshId() {
  static Adesk::IntPtr last = 0x1000;
  last += 8;
  return AcDbObjectId().setFromOldId(last);
}

const wchar_t* modeName(AcDb::OpenMode mode) {
  switch (mode) {
    case AcDb::kForRead:
      return L" for read";
    case AcDb::kForWrite:
      return L" for write";
    default:
      return L" for notify";
  }
}

}  // namespace

AcDbObjectImp::AcDbObjectImp(wb::DrawingDatabase& database, std::unique_ptr<AcDbObject> object)
    : database(database), id(freshId()), object_(std::move(object)) {
  object_->imp = this;
  objects()[id.asOldId()] = this;
}

AcDbObjectImp::~AcDbObjectImp() { objects().erase(id.asOldId()); }

AcDbObjectImp* AcDbObjectImp::find(AcDbObjectId id) {
  const auto found = objects().find(id.asOldId());
  return found == objects().end() ? nullptr : found->second;
}

std::wstring AcDbObjectImp::label() const {
  const std::wstring own = name();
  return object_->isA()->name() + (own.empty() ? std::wstring() : L" " + own);
}

Acad::ErrorStatus AcDbObjectImp::open(AcDb::OpenMode mode, bool openErased) {
  if (database.drawing().closed()) return Acad::ePermanentlyErased;
  if (erased && !openErased) return Acad::eWasErased;
  if (mode == AcDb::kForNotify) {
    if (watcher_) return wasOpenForNotify;
    watcher_ = wb::handOut(L"object", label() + modeName(mode));
    return Acad::eOk;
  }
  if (writer_) return Acad::eWasOpenForWrite;
  if (watcher_) return wasOpenForNotify;
  if (mode == AcDb::kForRead) {
    readers_.push_back(wb::handOut(L"object", label() + modeName(mode)));
    return Acad::eOk;
  }
  if (!readers_.empty()) return Acad::eWasOpenForRead;
  if (!database.drawing().mayBeWritten()) return Acad::eLockViolation;
  writer_ = wb::handOut(L"object", label() + modeName(mode));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObjectImp::close() {
  if (watcher_) {
    wb::giveBack(*watcher_);
    watcher_.reset();
  } else if (writer_) {
    wb::giveBack(*writer_);
    writer_.reset();
  } else if (!readers_.empty()) {
    wb::giveBack(readers_.back());
    readers_.pop_back();
  } else {
    wb::tell(wb::Event::error, L"AcDbObject::close of " + label() + L", which isn't open");
    return Acad::eNotOpenForRead;
  }
  return Acad::eOk;
}

AcDbObjectImp* AcDbObjectImp::read(const AcDbObject* object, const wchar_t* operation) {
  AcDbObjectImp* imp = of(object);
  if (imp->openForRead()) return imp;
  wb::tell(wb::Event::error, operation + (L" of " + imp->label()) + L", which isn't open");
  return nullptr;
}

AcDbObjectImp* AcDbObjectImp::write(const AcDbObject* object, const wchar_t* operation) {
  AcDbObjectImp* imp = of(object);
  if (imp->openForWrite()) return imp;
  wb::tell(wb::Event::error,
           operation + (L" of " + imp->label()) + L", which isn't open for write");
  return nullptr;
}

WB_DEFINE_RX_CLASS(AcGiDrawable, AcRxObject)
WB_DEFINE_RX_CLASS(AcDbObject, AcGiDrawable)
WB_DEFINE_RX_CLASS(AcDbEntity, AcDbObject)
WB_DEFINE_RX_CLASS(AcDbObjectIterator, AcRxObject)

AcGiDrawable::AcGiDrawable() = default;
AcDbObject::AcDbObject() = default;
AcDbObject::~AcDbObject() = default;
AcDbEntity::AcDbEntity() = default;
AcDbEntity::~AcDbEntity() = default;

bool c5ObjIdIsLessThan(const AcDbStub* first, const AcDbStub* second) {
  return std::less<>()(first, second);
}

// The host gives both ids of an object that isn't open as well.
AcDbObjectId AcDbObject::objectId() const { return imp->id; }

AcDbObjectId AcDbObject::ownerId() const {
  const wb::InStandIn inside;
  return AcDbObjectImp::read(this, L"AcDbObject::ownerId") ? imp->owner : AcDbObjectId();
}

Acad::ErrorStatus AcDbObject::close() {
  const wb::InStandIn inside;
  return imp->close();
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
  const wb::InStandIn inside;
  pObj = nullptr;
  if (id.isNull()) return Acad::eNullObjectId;
  if (FAILED(wb::takeFault(L"host.acdbOpenAcDbObject"))) return Acad::eWasErased;
  AcDbObjectImp* imp = AcDbObjectImp::find(id);
  if (!imp) return Acad::ePermanentlyErased;
  const Acad::ErrorStatus status = imp->open(mode, openErased);
  if (status == Acad::eOk) pObj = imp->object();
  return status;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                     const AcRxClass* pClass, bool openErased) {
  const wb::InStandIn inside;
  pObj = nullptr;
  const AcDbObjectImp* imp = AcDbObjectImp::find(id);
  if (imp && pClass && !imp->object()->isKindOf(pClass)) return Acad::eNotThatKindOfClass;
  return acdbOpenAcDbObject(pObj, id, mode, openErased);
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName) {
  objId.setNull();
  AcDbObjectId id;
  id.setFromOldId(objName[0]);
  const AcDbObjectImp* imp = objName[1] == 0 ? AcDbObjectImp::find(id) : nullptr;
  if (!imp || !imp->object()->isKindOf(AcDbEntity::desc())) return Acad::eInvalidAdsName;
  objId = id;
  return Acad::eOk;
}
