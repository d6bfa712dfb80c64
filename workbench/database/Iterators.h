#pragma once

#include <dbents.h>

#include <vector>

#include "database/Objects.h"

/// The attributes of a reference as they were when the iterator was made.
class AcDbSpaceIterator {
 public:
  explicit AcDbSpaceIterator(const wb::ReferenceImp& reference);

  /// An iterator for an application, entered in the accounts.
  static AcDbObjectIterator* make(const wb::ReferenceImp& reference);

  void start(bool atEnd);
  bool done() const { return position < 0 || position > last(); }
  void step(bool backwards, bool skipDeleted);
  AcDbObjectId objectId() const;

 private:
  std::ptrdiff_t last() const { return static_cast<std::ptrdiff_t>(ids.size()) - 1; }
  void skip(bool backwards);

  std::vector<AcDbObjectId> ids;
  std::ptrdiff_t position = 0;
};

/// Makes what only the host may make.
class AcDbBlockReferenceIdIteratorImp {
 public:
  static AcDbBlockReferenceIdIterator* make(const wb::BlockRecordImp& record);
};
