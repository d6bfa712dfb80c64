#pragma once

#include "rxobject.h"

/// Objects by name; comparison ignores case.
class AcRxDictionary : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDictionary)

  /// The object under `key`, or null.
  virtual AcRxObject* at(const ACHAR* key) const = 0;
  /// Takes the entry out and hands its object back, or null if there is none.
  virtual AcRxObject* remove(const ACHAR* key) = 0;
};

/// The host's services by name.
extern "C" AcRxDictionary* acrxSysRegistry();
