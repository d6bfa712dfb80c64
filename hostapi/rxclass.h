#pragma once

#include "rxobject.h"

/// Tells a drawing's format which name to store for a class's application.
typedef void (*AppNameChangeFuncPtr)(const AcRxClass* classObj, ACHAR*& newAppName, int saveVer);

/// Describes one class of the host; the instances stand in the "ClassDictionary" by name.
class AcRxClass : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxClass)

  AcRx::Ordering comparedTo(const AcRxObject*) const override = 0;
  virtual AcRxObject* addX(AcRxClass*, AcRxObject*) = 0;
  virtual AcRxObject* getX(const AcRxClass*) = 0;
  virtual AcRxObject* delX(AcRxClass*) = 0;
  virtual AcRxObject* queryX(const AcRxClass*) = 0;
  virtual AcRxObject* create() = 0;
  virtual const ACHAR* appName() const = 0;
  virtual const ACHAR* dxfName() const = 0;
  virtual const ACHAR* name() const = 0;
  virtual void getClassVersion(int&, int&) const = 0;
  virtual int proxyFlags() const = 0;
  /// True if this is `parent` or derives from it, over any number of levels.
  virtual bool isDerivedFrom(const AcRxClass* parent) const = 0;
  virtual AcRxClass* myParent() const = 0;
  virtual AppNameChangeFuncPtr appNameCallbackPtr() const = 0;
};

inline bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
  return isA()->isDerivedFrom(aClass);
}

#include "rxdict.h"
