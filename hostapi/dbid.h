#pragma once

#include "acadstrc.h"
#include "adesk.h"

/// Names a database object for as long as its database is in memory; 0 names none.
class AcDbObjectId {
 public:
  AcDbObjectId() : id(0) {}

  static const AcDbObjectId kNull;

  bool isNull() const { return id == 0; }
  AcDbObjectId& setNull() {
    id = 0;
    return *this;
  }
  Adesk::IntPtr asOldId() const { return id; }
  AcDbObjectId& setFromOldId(Adesk::IntPtr oldId) {
    id = oldId;
    return *this;
  }

  bool operator==(const AcDbObjectId& other) const { return id == other.id; }
  bool operator!=(const AcDbObjectId& other) const { return id != other.id; }
  bool operator<(const AcDbObjectId& other) const { return id < other.id; }

 private:
  Adesk::IntPtr id;
};
