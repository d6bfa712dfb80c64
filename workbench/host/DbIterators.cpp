#include <algorithm>

#include "core/StandInTime.h"
#include "host/DbObjects.h"
#include "host/DrawingDatabase.h"

namespace {

bool isErased(AcDbObjectId id) {
  const AcDbObjectImp* imp = AcDbObjectImp::find(id);
  return !imp || imp->erased;
}

/// Something of the host's that an application deletes.
class Lent {
 public:
  explicit Lent(std::wstring label) : ticket(wb::handOut(L"iterator", std::move(label))) {}
  ~Lent() { wb::giveBack(ticket); }
  Lent(const Lent&) = delete;
  Lent& operator=(const Lent&) = delete;

 private:
  wb::Ticket ticket;
};

/// The attributes of a reference as they were when the iterator was made.
class AttributeIterator : public AcDbObjectIterator {
 public:
  explicit AttributeIterator(const wb::ReferenceImp& reference)
      : lent(L"AcDbObjectIterator of " + reference.label()), ids(reference.attributes) {
    start(false);
  }

  void start(bool atEnd) override {
    position = atEnd ? last() : 0;
    skip(atEnd);
  }
  bool done() const override { return position < 0 || position > last(); }
  void step(bool backwards, bool skipDeleted) override {
    const wb::InStandIn inside;
    if (done()) return;
    position += backwards ? -1 : 1;
    if (skipDeleted) skip(backwards);
  }
  AcDbObjectId objectId() const override {
    return done() ? AcDbObjectId() : ids[static_cast<size_t>(position)];
  }

 private:
  std::ptrdiff_t last() const { return static_cast<std::ptrdiff_t>(ids.size()) - 1; }
  void skip(bool backwards) {
    while (!done() && isErased(objectId())) position += backwards ? -1 : 1;
  }

  Lent lent;
  std::vector<AcDbObjectId> ids;
  std::ptrdiff_t position = 0;
};

}  // namespace

class AcDbBlockReferenceIdIteratorImp {
 public:
  explicit AcDbBlockReferenceIdIteratorImp(const wb::BlockRecordImp& record)
      : lent(L"AcDbBlockReferenceIdIterator of " + record.label()), ids(record.references) {}

  static AcDbBlockReferenceIdIterator* make(const wb::BlockRecordImp& record) {
    auto iterator = std::unique_ptr<AcDbBlockReferenceIdIterator>(new AcDbBlockReferenceIdIterator);
    iterator->imp = new AcDbBlockReferenceIdIteratorImp(record);
    return iterator.release();
  }

  Lent lent;
  std::vector<AcDbObjectId> ids;
  size_t position = 0;
};

AcDbBlockReferenceIdIterator::AcDbBlockReferenceIdIterator() = default;
AcDbBlockReferenceIdIterator::~AcDbBlockReferenceIdIterator() {
  const wb::InStandIn inside;
  delete imp;
}

void AcDbBlockReferenceIdIterator::start() {
  const wb::InStandIn inside;
  imp->position = 0;
}
bool AcDbBlockReferenceIdIterator::done() const { return imp->position >= imp->ids.size(); }
void AcDbBlockReferenceIdIterator::step() {
  const wb::InStandIn inside;
  if (!done()) ++imp->position;
}

Acad::ErrorStatus AcDbBlockReferenceIdIterator::getBlockReference(AcDbBlockReference*& pBlkRef,
                                                                  AcDb::OpenMode openMode,
                                                                  bool openErasedRec) const {
  const wb::InStandIn inside;
  pBlkRef = nullptr;
  if (done()) return Acad::eInvalidIndex;
  return acdbOpenObject(pBlkRef, imp->ids[imp->position], openMode, openErasedRec);
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
  return imp ? new AttributeIterator(*imp) : nullptr;
}
