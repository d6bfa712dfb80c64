#pragma once

#include "adesk.h"

class AcDbStub;

/// The order of two ids.
bool c5ObjIdIsLessThan(const AcDbStub* first, const AcDbStub* second);

/// Names a database object for as long as its database is in memory; null names none.
class AcDbObjectId {
 public:
  AcDbObjectId() : mId(nullptr) {}

  bool isNull() const { return mId == nullptr; }
  AcDbObjectId& setNull() {
    mId = nullptr;
    return *this;
  }
  Adesk::IntPtr asOldId() const { return reinterpret_cast<Adesk::IntPtr>(mId); }
  AcDbObjectId& setFromOldId(Adesk::IntPtr oldId) {
    mId = reinterpret_cast<AcDbStub*>(oldId);
    return *this;
  }

  bool operator==(const AcDbObjectId& other) const { return mId == other.mId; }
  bool operator!=(const AcDbObjectId& other) const { return mId != other.mId; }
  bool operator<(const AcDbObjectId& other) const { return c5ObjIdIsLessThan(mId, other.mId); }

 protected:
  AcDbStub* mId;
};
