#pragma once

#include "rxobject.h"

class AcDbDatabase;

/// Events of the database's life.
class AcRxEventReactor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxEventReactor)

  /// A drawing was written, as `pActualName`.
  virtual void saveComplete(AcDbDatabase* database, const ACHAR* pActualName);
};

/// The source of those events.
class AcRxEvent : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxEvent)

  virtual void addReactor(AcRxEventReactor* reactor) = 0;
  virtual void removeReactor(AcRxEventReactor* reactor) = 0;
};
