#include "database/Iterators.h"

#include "database/DatabaseState.h"
#include "gate/HostCall.h"

using wb::HostCall;

AcDbObjectIterator::AcDbObjectIterator(AcDbSpaceIterator* pImpIterator)
    : mpImpIterator(pImpIterator) {}

AcDbObjectIterator::~AcDbObjectIterator() {
  const HostCall call(L"host.~AcDbObjectIterator");
  wb::databaseState().iterators.closed(this);
  delete mpImpIterator;
}

void AcDbObjectIterator::start(bool atEnd) {
  HostCall(L"AcDbObjectIterator.start").run([&] { mpImpIterator->start(atEnd); });
}

bool AcDbObjectIterator::done() const {
  return HostCall(L"AcDbObjectIterator.done").run(true, [&] { return mpImpIterator->done(); });
}

void AcDbObjectIterator::step(bool backwards, bool skipDeleted) {
  HostCall(L"AcDbObjectIterator.step").run([&] { mpImpIterator->step(backwards, skipDeleted); });
}

AcDbObjectId AcDbObjectIterator::objectId() {
  return HostCall(L"AcDbObjectIterator.objectId").run(AcDbObjectId(), [&] {
    return mpImpIterator->objectId();
  });
}

AcDbBlockReferenceIdIterator::AcDbBlockReferenceIdIterator() : mPos(0) {}

AcDbBlockReferenceIdIterator::~AcDbBlockReferenceIdIterator() {
  const HostCall call(L"host.~AcDbBlockReferenceIdIterator");
  wb::databaseState().iterators.closed(this);
}

Acad::ErrorStatus AcDbBlockReferenceIdIterator::getBlockReference(AcDbBlockReference*& pBlkRef,
                                                                  AcDb::OpenMode openMode,
                                                                  bool openErasedRec) const {
  pBlkRef = nullptr;
  const HostCall call(L"AcDbBlockReferenceIdIterator.getBlockReference");
  return call.run(Acad::eInvalidIndex, [&] {
    if (done()) return Acad::eInvalidIndex;
    return acdbOpenObject(pBlkRef, mAry[mPos], openMode, openErasedRec);
  });
}

Acad::ErrorStatus AcDbBlockTableRecord::newBlockReferenceIdIterator(
    AcDbBlockReferenceIdIterator*& pIter) const {
  pIter = nullptr;
  const HostCall call(L"AcDbBlockTableRecord.newBlockReferenceIdIterator");
  return call.run(Acad::eNotOpenForRead, [&] {
    pIter = AcDbBlockReferenceIdIteratorImp::make(AcDbObjectImp::read<wb::BlockRecordImp>(
        this, L"AcDbBlockTableRecord::newBlockReferenceIdIterator"));
    return Acad::eOk;
  });
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
  const HostCall call(L"AcDbBlockReference.attributeIterator");
  return call.run<AcDbObjectIterator*>(nullptr, [&] {
    return AcDbSpaceIterator::make(
        AcDbObjectImp::read<wb::ReferenceImp>(this, L"AcDbBlockReference::attributeIterator"));
  });
}
