#pragma once

#include "rxobject.h"

/// Describes one class of the host; the instances stand in the "ClassDictionary" by name.
class AcRxClass : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxClass)

  const ACHAR* name() const;
  AcRxClass* myParent() const;
  /// True if this is `parent` or derives from it, over any number of levels.
  bool isDerivedFrom(const AcRxClass* parent) const;

 private:
  friend class AcRxClassImp;
  AcRxClass(const ACHAR* name, AcRxClass* parent) : name_(name), parent_(parent) {}

  const ACHAR* name_;
  AcRxClass* parent_;
};
