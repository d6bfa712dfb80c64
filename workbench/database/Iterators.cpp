#include "core/HandleLedger.h"
#include "core/StandInTime.h"
#include "database/Database.h"
#include "database/Objects.h"

namespace {

bool isErased(AcDbObjectId id) {
  const AcDbObjectImp* imp = AcDbObjectImp::find(id);
  return !imp || imp->erased;
}

wb::HandleLedger<const void*>& iterators() {
  static wb::HandleLedger<const void*> ledger(L"iterator");
  return ledger;
}

}  // namespace

/// The attributes of a reference as they were when the iterator was made.
class AcDbSpaceIterator {
 public:
  explicit AcDbSpaceIterator(const wb::ReferenceImp& reference) : ids(reference.attributes) {
    start(false);
  }

  static AcDbObjectIterator* make(const wb::ReferenceImp& reference) {
    auto* iterator = new AcDbObjectIterator(new AcDbSpaceIterator(reference));
    iterators().opened(iterator, L"AcDbObjectIterator of " + reference.label());
    return iterator;
  }

  void start(bool atEnd) {
    position = atEnd ? last() : 0;
    skip(atEnd);
  }
  bool done() const { return position < 0 || position > last(); }
  void step(bool backwards, bool skipDeleted) {
    if (done()) return;
    position += backwards ? -1 : 1;
    if (skipDeleted) skip(backwards);
  }
  AcDbObjectId objectId() const {
    return done() ? AcDbObjectId() : ids[static_cast<size_t>(position)];
  }

 private:
  std::ptrdiff_t last() const { return static_cast<std::ptrdiff_t>(ids.size()) - 1; }
  void skip(bool backwards) {
    while (!done() && isErased(objectId())) position += backwards ? -1 : 1;
  }

  std::vector<AcDbObjectId> ids;
  std::ptrdiff_t position = 0;
};

AcDbObjectIterator::AcDbObjectIterator(AcDbSpaceIterator* pImpIterator)
    : mpImpIterator(pImpIterator) {}

AcDbObjectIterator::~AcDbObjectIterator() {
  const wb::InStandIn inside;
  iterators().closed(this);
  delete mpImpIterator;
}

void AcDbObjectIterator::start(bool atEnd) {
  const wb::InStandIn inside;
  mpImpIterator->start(atEnd);
}

bool AcDbObjectIterator::done() const { return mpImpIterator->done(); }

void AcDbObjectIterator::step(bool backwards, bool skipDeleted) {
  const wb::InStandIn inside;
  mpImpIterator->step(backwards, skipDeleted);
}

AcDbObjectId AcDbObjectIterator::objectId() { return mpImpIterator->objectId(); }

/// Makes what only the host may make.
class AcDbBlockReferenceIdIteratorImp {
 public:
  static AcDbBlockReferenceIdIterator* make(const wb::BlockRecordImp& record) {
    auto* iterator = new AcDbBlockReferenceIdIterator;
    for (const AcDbObjectId id : record.references) iterator->mAry.append(id);
    iterators().opened(iterator, L"AcDbBlockReferenceIdIterator of " + record.label());
    return iterator;
  }
};

AcDbBlockReferenceIdIterator::AcDbBlockReferenceIdIterator() : mPos(0) {}
AcDbBlockReferenceIdIterator::~AcDbBlockReferenceIdIterator() {
  const wb::InStandIn inside;
  iterators().closed(this);
}

Acad::ErrorStatus AcDbBlockReferenceIdIterator::getBlockReference(AcDbBlockReference*& pBlkRef,
                                                                  AcDb::OpenMode openMode,
                                                                  bool openErasedRec) const {
  const wb::InStandIn inside;
  pBlkRef = nullptr;
  if (done()) return Acad::eInvalidIndex;
  return acdbOpenObject(pBlkRef, mAry[mPos], openMode, openErasedRec);
}

Acad::ErrorStatus AcDbBlockTableRecord::newBlockReferenceIdIterator(
    AcDbBlockReferenceIdIterator*& pIter) const {
  const wb::InStandIn inside;
  pIter = nullptr;
  const auto* imp = static_cast<const wb::BlockRecordImp*>(
      AcDbObjectImp::read(this, L"AcDbBlockTableRecord::newBlockReferenceIdIterator"));
  if (!imp) return Acad::eNotOpenForRead;
  pIter = AcDbBlockReferenceIdIteratorImp::make(*imp);
  return Acad::eOk;
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
  const wb::InStandIn inside;
  const auto* imp = static_cast<const wb::ReferenceImp*>(
      AcDbObjectImp::read(this, L"AcDbBlockReference::attributeIterator"));
  return imp ? AcDbSpaceIterator::make(*imp) : nullptr;
}
