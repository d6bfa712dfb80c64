#include "xref/SelectionSet.h"

#include <adscodes.h>
#include <dbmain.h>

namespace tessaro {

SelectionSet::~SelectionSet() {
  if (held) acedSSFree(name);
}

int SelectionSet::get(const ACHAR* mode) {
  const int result = acedSSGet(mode, nullptr, nullptr, nullptr, name);
  held = result == RTNORM;
  return result;
}

long SelectionSet::length() const {
  long count = -1;
  return held && acedSSLength(name, &count) == RTNORM ? count : -1;
}

bool SelectionSet::at(long index, AcDbObjectId& id) const {
  ads_name entity;
  if (!held || acedSSName(name, index, entity) != RTNORM) return false;
  acdbGetObjectId(id, entity);
  return true;
}

}  // namespace tessaro
