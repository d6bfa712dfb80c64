#include "database/Iterators.h"

#include "database/DatabaseState.h"

namespace {

bool isErased(AcDbObjectId id) {
  const AcDbObjectImp* imp = AcDbObjectImp::find(id);
  return !imp || imp->erased;
}

}  // namespace

AcDbSpaceIterator::AcDbSpaceIterator(const wb::ReferenceImp& reference)
    : ids(reference.attributes) {
  start(false);
}

AcDbObjectIterator* AcDbSpaceIterator::make(const wb::ReferenceImp& reference) {
  auto* iterator = new AcDbObjectIterator(new AcDbSpaceIterator(reference));
  wb::databaseState().iterators.opened(iterator, L"AcDbObjectIterator of " + reference.label());
  return iterator;
}

void AcDbSpaceIterator::start(bool atEnd) {
  position = atEnd ? last() : 0;
  skip(atEnd);
}

void AcDbSpaceIterator::step(bool backwards, bool skipDeleted) {
  if (done()) return;
  position += backwards ? -1 : 1;
  if (skipDeleted) skip(backwards);
}

AcDbObjectId AcDbSpaceIterator::objectId() const {
  return done() ? AcDbObjectId() : ids[static_cast<size_t>(position)];
}

void AcDbSpaceIterator::skip(bool backwards) {
  while (!done() && isErased(objectId())) position += backwards ? -1 : 1;
}

AcDbBlockReferenceIdIterator* AcDbBlockReferenceIdIteratorImp::make(
    const wb::BlockRecordImp& record) {
  auto* iterator = new AcDbBlockReferenceIdIterator;
  for (const AcDbObjectId id : record.references) iterator->mAry.append(id);
  wb::databaseState().iterators.opened(iterator,
                                       L"AcDbBlockReferenceIdIterator of " + record.label());
  return iterator;
}
