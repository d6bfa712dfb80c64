// Objects of a drawing: opening and closing them, and what the host returns of each.
#include <acutmem.h>
#include <dbapserv.h>
#include <dbents.h>

#include <functional>
#include <string>
#include <vector>

#include "database/Drawing.h"
#include "gate/HostCall.h"

using ErrorStatus = Acad::ErrorStatus;
using namespace wb;

/// The attributes of a reference as they were when the iterator was made.
class AcDbSpaceIterator {
 public:
  explicit AcDbSpaceIterator(const ReferenceImp& reference) {
    for (const AcDbObjectImp* attribute : reference.attributes) ids.push_back(attribute->id);
    start(false);
  }

  static AcDbObjectIterator* make(const ReferenceImp& reference) {
    return new AcDbObjectIterator(new AcDbSpaceIterator(reference));
  }

  void start(bool atEnd) {
    position = atEnd ? last() : 0;
    skipErased(atEnd);
  }
  bool done() const { return position < 0 || position > last(); }
  void step(bool backwards, bool skipDeleted) {
    if (done()) return;
    position += backwards ? -1 : 1;
    if (skipDeleted) skipErased(backwards);
  }
  AcDbObjectId objectId() const {
    return done() ? AcDbObjectId() : ids[static_cast<size_t>(position)];
  }

 private:
  std::ptrdiff_t last() const { return static_cast<std::ptrdiff_t>(ids.size()) - 1; }
  void skipErased(bool backwards) {
    const auto isErased = [](const AcDbObjectImp* imp) { return !imp || imp->erased; };
    while (!done() && isErased(AcDbObjectImp::find(objectId()))) position += backwards ? -1 : 1;
  }

  std::vector<AcDbObjectId> ids;
  std::ptrdiff_t position = 0;
};

/// Makes what only the host may make.
class AcDbBlockReferenceIdIteratorImp {
 public:
  static AcDbBlockReferenceIdIterator* make(const BlockRecordImp& record) {
    auto* iterator = new AcDbBlockReferenceIdIterator;
    for (const ReferenceImp* reference : record.references) {
      iterator->mAry.append(reference->id);
    }
    return iterator;
  }
};

namespace {

AcDbObjectId idOf(const AcDbObjectImp* imp) { return imp ? imp->id : AcDbObjectId(); }

/// Runs a call that reads an open object; `value` is a member of the object or a function of it.
template <class Imp, class Result, class Value>
Result read(const AcDbObject* object, Signature function, Result failure, const Value& value) {
  return HostCall(function).run(failure, [&]() -> Result {
    return std::invoke(value, AcDbObjectImp::read<Imp>(object, function.name().c_str()));
  });
}

/// Returns a text of an open object, as a copy for the caller or as the host's own.
template <class Imp>
ErrorStatus readText(const AcDbObject* object, Signature function, std::wstring Imp::* member,
                     ACHAR*& text) {
  text = nullptr;
  return read<Imp>(object, function, Acad::eNotOpenForRead,
                   [&](const Imp& imp) { return acutNewString((imp.*member).c_str(), text); });
}

template <class Imp>
ErrorStatus readText(const AcDbObject* object, Signature function, std::wstring Imp::* member,
                     const ACHAR*& text) {
  text = nullptr;
  return read<Imp>(object, function, Acad::eNotOpenForRead, [&](const Imp& imp) {
    text = (imp.*member).c_str();
    return Acad::eOk;
  });
}

}  // namespace

bool c5ObjIdIsLessThan(const AcDbStub* first, const AcDbStub* second) {
  return HostCall(THIS_FUNCTION).run(false, [&] { return std::less<>()(first, second); });
}

ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                               bool openErased) {
  pObj = nullptr;
  return HostCall(THIS_FUNCTION, HostCall::swept).run(Acad::eWasErased, [&] {
    if (id.isNull()) return Acad::eNullObjectId;
    AcDbObjectImp* const imp = AcDbObjectImp::find(id);
    if (!imp) return Acad::ePermanentlyErased;
    imp->open(mode, openErased);
    pObj = imp->object();
    return Acad::eOk;
  });
}

ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                               const AcRxClass* pClass, bool openErased) {
  pObj = nullptr;
  const HostCall call(L"host.acdbOpenAcDbObjectOfClass");
  const AcDbObjectImp* imp = AcDbObjectImp::find(id);
  if (imp && pClass && !imp->object()->isKindOf(pClass)) return Acad::eNotThatKindOfClass;
  return acdbOpenAcDbObject(pObj, id, mode, openErased);
}

ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName) {
  objId.setNull();
  return HostCall(THIS_FUNCTION).run(Acad::eInvalidAdsName, [&] {
    AcDbObjectId id;
    id.setFromOldId(objName[0]);
    const AcDbObjectImp* imp = objName[1] == 0 ? AcDbObjectImp::find(id) : nullptr;
    if (!imp || !imp->object()->isKindOf(AcDbEntity::desc())) return Acad::eInvalidAdsName;
    objId = id;
    return Acad::eOk;
  });
}

// The host returns both ids of an object that isn't open as well.
AcDbObjectId AcDbObject::objectId() const {
  return HostCall(THIS_FUNCTION).run(AcDbObjectId(), [&] { return imp->id; });
}

AcDbObjectId AcDbObject::ownerId() const {
  return read<AcDbObjectImp>(this, THIS_FUNCTION, AcDbObjectId(),
                             [](auto& imp) { return idOf(imp.owner); });
}

ErrorStatus AcDbObject::close() {
  return HostCall(THIS_FUNCTION).run(Acad::eWasErased, [&] {
    imp->close();
    return Acad::eOk;
  });
}

ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode) {
  pTable = nullptr;
  return HostCall(THIS_FUNCTION).run(Acad::eNotOpenForRead, [&] {
    const Drawing* drawing = Drawing::of(this);
    if (!drawing) return Acad::ePermanentlyErased;
    return acdbOpenObject(pTable, drawing->blockTable().id, mode);
  });
}

// Every record of this host is a block's.
ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& pName) const {
  return readText(this, THIS_FUNCTION, &AcDbObjectImp::name, pName);
}

ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& pName) const {
  return readText(this, THIS_FUNCTION, &AcDbObjectImp::name, pName);
}

ErrorStatus AcDbBlockTableRecord::pathName(ACHAR*& pPath) const {
  return readText(this, THIS_FUNCTION, &BlockRecordImp::path, pPath);
}

ErrorStatus AcDbBlockTableRecord::pathName(const ACHAR*& pPath) const {
  return readText(this, THIS_FUNCTION, &BlockRecordImp::path, pPath);
}

bool AcDbBlockTableRecord::isFromExternalReference() const {
  return read<BlockRecordImp>(this, THIS_FUNCTION, false, &BlockRecordImp::isXref);
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
  return read<BlockRecordImp>(this, THIS_FUNCTION, false, &BlockRecordImp::hasAttributeDefinitions);
}

AcDbObjectId AcDbBlockTableRecord::getLayoutId() const {
  return read<BlockRecordImp>(this, THIS_FUNCTION, AcDbObjectId(),
                              [](auto& imp) { return idOf(imp.layout); });
}

ErrorStatus AcDbBlockTableRecord::newBlockReferenceIdIterator(
    AcDbBlockReferenceIdIterator*& pIter) const {
  pIter = nullptr;
  return read<BlockRecordImp>(this, THIS_FUNCTION, Acad::eNotOpenForRead, [&](auto& imp) {
    pIter = AcDbBlockReferenceIdIteratorImp::make(imp);
    databaseState().iterators.opened(pIter, L"AcDbBlockReferenceIdIterator of " + imp.label());
    return Acad::eOk;
  });
}

ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbObjectId& recordId,
                                  bool getErasedRec) const {
  recordId.setNull();
  return HostCall(THIS_FUNCTION, HostCall::swept).run(Acad::eInvalidInput, [&] {
    const AcDbObjectImp& imp = AcDbObjectImp::read(this, L"AcDbBlockTable::getAt");
    if (!entryName) return Acad::eInvalidInput;
    const BlockRecordImp* found = imp.drawing.findRecord(entryName);
    if (!found) return Acad::eKeyNotFound;
    if (found->erased && !getErasedRec) return Acad::eWasErased;
    recordId = found->id;
    return Acad::eOk;
  });
}

ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbBlockTableRecord*& pRec,
                                  AcDb::OpenMode openMode, bool openErasedRec) const {
  pRec = nullptr;
  const InStandIn inside;
  AcDbObjectId id;
  // The other getAt is the gate.
  const ErrorStatus status = getAt(entryName, id, openErasedRec);
  return status == Acad::eOk ? acdbOpenObject(pRec, id, openMode, openErasedRec) : status;
}

ErrorStatus AcDbLayout::getLayoutName(ACHAR*& pLayoutName) const {
  return readText(this, THIS_FUNCTION, &AcDbObjectImp::name, pLayoutName);
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  return read<ReferenceImp>(this, THIS_FUNCTION, AcDbObjectId(),
                            [](auto& imp) { return idOf(imp.record); });
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
  return read<ReferenceImp, AcDbObjectIterator*>(this, THIS_FUNCTION, nullptr, [](auto& imp) {
    AcDbObjectIterator* iterator = AcDbSpaceIterator::make(imp);
    databaseState().iterators.opened(iterator, L"AcDbObjectIterator of " + imp.label());
    return iterator;
  });
}

ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& pAttribute, AcDbObjectId objId,
                                              AcDb::OpenMode openMode, bool openErasedOne) {
  pAttribute = nullptr;
  return read<ReferenceImp>(this, THIS_FUNCTION, Acad::eNotOpenForRead, [&](auto&) {
    return acdbOpenObject(pAttribute, objId, openMode, openErasedOne);
  });
}

ErrorStatus AcDbText::setTextString(const ACHAR* pText) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(Acad::eInvalidInput, [&] {
    if (!pText) return Acad::eInvalidInput;
    auto& imp = AcDbObjectImp::write<TextImp>(this, L"AcDbText::setTextString");
    imp.setText(pText);
    imp.aligned = imp.leftAligned;
    imp.drawing.touch();
    return Acad::eOk;
  });
}

// The place of text that isn't left-aligned follows from its font. No font is measured here: the
// stored alignment point stays the authority, from which a reader of the file places the text.
// What is kept is whether the application asked for it as the host needs it.
ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase* pDb) {
  return HostCall(THIS_FUNCTION).run(Acad::eNotOpenForWrite, [&] {
    auto& imp = AcDbObjectImp::write<TextImp>(this, L"AcDbText::adjustAlignment");
    const AcDbDatabase* own = imp.drawing.database();
    const AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
    if (working == own && (!pDb || pDb == own)) imp.aligned = true;
    return Acad::eOk;
  });
}

ACHAR* AcDbAttribute::tag() const {
  ACHAR* copy = nullptr;
  readText(this, THIS_FUNCTION, &AcDbObjectImp::name, copy);
  return copy;
}

AcDbObjectIterator::AcDbObjectIterator(AcDbSpaceIterator* pImpIterator)
    : mpImpIterator(pImpIterator) {}

AcDbObjectIterator::~AcDbObjectIterator() {
  const HostCall call(THIS_FUNCTION);
  databaseState().iterators.closed(this);
  delete mpImpIterator;
}

void AcDbObjectIterator::start(bool atEnd) {
  HostCall(THIS_FUNCTION).run([&] { mpImpIterator->start(atEnd); });
}

bool AcDbObjectIterator::done() const {
  return HostCall(THIS_FUNCTION).run(true, [&] { return mpImpIterator->done(); });
}

void AcDbObjectIterator::step(bool backwards, bool skipDeleted) {
  HostCall(THIS_FUNCTION).run([&] { mpImpIterator->step(backwards, skipDeleted); });
}

AcDbObjectId AcDbObjectIterator::objectId() {
  return HostCall(THIS_FUNCTION).run(AcDbObjectId(), [&] { return mpImpIterator->objectId(); });
}

AcDbBlockReferenceIdIterator::AcDbBlockReferenceIdIterator() : mPos(0) {}

AcDbBlockReferenceIdIterator::~AcDbBlockReferenceIdIterator() {
  const HostCall call(THIS_FUNCTION);
  databaseState().iterators.closed(this);
}

ErrorStatus AcDbBlockReferenceIdIterator::getBlockReference(AcDbBlockReference*& pBlkRef,
                                                            AcDb::OpenMode openMode,
                                                            bool openErasedRec) const {
  pBlkRef = nullptr;
  return HostCall(THIS_FUNCTION).run(Acad::eInvalidIndex, [&] {
    if (done()) return Acad::eInvalidIndex;
    return acdbOpenObject(pBlkRef, mAry[mPos], openMode, openErasedRec);
  });
}
