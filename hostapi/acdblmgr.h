#pragma once

#include "AdAChar.h"
#include "rxobject.h"

/// The tabs of the working database's drawing.
class AcDbLayoutManager : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayoutManager)

  /// Name of the current tab. Without `allowModel` the sheet that was current last, if model space
  /// is on top. Null if no drawing is open. The text is the manager's, good until the next call.
  virtual const ACHAR* findActiveLayout(bool allowModel) = 0;
};
