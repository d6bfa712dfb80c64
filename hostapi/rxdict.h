#pragma once

#include "rxobject.h"

class AcRxDictionaryIterator;

/// Objects by name or number; comparison ignores case.
class AcRxDictionary : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDictionary)

  /// The object under `key`, or null.
  virtual AcRxObject* at(const ACHAR* key) const = 0;
  virtual AcRxObject* at(Adesk::UInt32) const = 0;
  virtual AcRxObject* atPut(const ACHAR*, AcRxObject*, Adesk::UInt32&) = 0;
  virtual AcRxObject* atPut(Adesk::UInt32, AcRxObject*) = 0;
  virtual Adesk::Boolean resetKey(const ACHAR*, const ACHAR*) = 0;
  virtual Adesk::Boolean resetKey(Adesk::UInt32, const ACHAR*) = 0;
  virtual Adesk::Boolean atKeyAndIdPut(const ACHAR*, Adesk::UInt32, AcRxObject*) = 0;
  /// Takes the entry out and hands its object back, or null if there is none.
  virtual AcRxObject* remove(const ACHAR* key) = 0;
  virtual AcRxObject* remove(Adesk::UInt32) = 0;
  virtual Adesk::Boolean has(const ACHAR*) const = 0;
  virtual Adesk::Boolean has(Adesk::UInt32) const = 0;
  virtual Adesk::UInt32 idAt(const ACHAR*) const = 0;
  virtual const ACHAR* keyAt(Adesk::UInt32) const = 0;
  virtual Adesk::UInt32 numEntries() const = 0;
  virtual AcRxDictionaryIterator* newIterator(AcRx::DictIterType) = 0;
  virtual Adesk::Boolean deletesObjects() const = 0;
  virtual Adesk::Boolean isCaseSensitive() const = 0;
  virtual Adesk::Boolean isSorted() const = 0;
};

/// The host's services by name.
extern "C" AcRxDictionary* acrxSysRegistry();
