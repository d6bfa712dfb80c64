#pragma once

#include "acadstrc.h"
#include "rxdefs.h"

class AcRxClass;

/// Root of the host's classes. `isA` names the class of an object at run time; a class that an
/// application derives without describing it to the host counts as its nearest described base.
class AcRxObject {
 public:
  virtual ~AcRxObject() {}
  static AcRxClass* desc();
  virtual AcRxClass* isA() const;
  static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }
  /// True if the object's class is `aClass` or derives from it.
  bool isKindOf(const AcRxClass* aClass) const;

 protected:
  AcRxObject() {}

 private:
  AcRxObject(const AcRxObject&) = delete;
  AcRxObject& operator=(const AcRxObject&) = delete;
};

/// The run-time description of a host class: its descriptor, and the checked cast, which gives
/// null for null and for an object of another class.
#define ACRX_DECLARE_MEMBERS(CLASS)                                  \
  AcRxClass* isA() const override;                                   \
  static AcRxClass* desc();                                          \
  static CLASS* cast(const AcRxObject* object) {                     \
    if (!object || !object->isKindOf(CLASS::desc())) return nullptr; \
    return static_cast<CLASS*>(const_cast<AcRxObject*>(object));     \
  }
