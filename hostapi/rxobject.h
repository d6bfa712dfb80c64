#pragma once

#include "acadstrc.h"
#include "rxboiler.h"
#include "rxdefs.h"

class AcRxClass;

/// Root of the host's classes. `isA` names the class of an object at run time; a class that an
/// application derives without describing it to the host counts as its nearest described base.
class AcRxObject {
 public:
  virtual ~AcRxObject() {}
  static AcRxClass* desc();
  static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }
  /// True if the object's class is `aClass` or derives from it.
  bool isKindOf(const AcRxClass* aClass) const;
  virtual AcRxClass* isA() const;
  virtual AcRxObject* clone() const;
  virtual Acad::ErrorStatus copyFrom(const AcRxObject*);
  virtual Adesk::Boolean isEqualTo(const AcRxObject*) const;
  virtual AcRx::Ordering comparedTo(const AcRxObject*) const;

 protected:
  AcRxObject();

 private:
  AcRxObject(const AcRxObject&) = delete;
  AcRxObject& operator=(const AcRxObject&) = delete;
};

// It needs this file's class as its base, and this file its class for `isKindOf`.
#include "rxclass.h"
