#pragma once

#include "dblayout.h"

class AcDbLayoutManagerReactor;

/// The tabs of the working database's drawing. It has no description of its own at run time.
class AcDbLayoutManager : public AcRxObject {
 public:
  virtual Acad::ErrorStatus setCurrentLayout(const ACHAR*) = 0;
  virtual Acad::ErrorStatus setCurrentLayoutId(AcDbObjectId) = 0;
  /// Name of the current tab. Without `allowModel` the sheet that was current last, if model space
  /// is on top. Null if no drawing is open. The text is the manager's, good until the next call.
  virtual const ACHAR* findActiveLayout(bool allowModel) = 0;
  virtual AcDbObjectId getActiveLayoutBTRId() = 0;
  virtual AcDbLayout* findLayoutNamed(const ACHAR*, bool) = 0;
  virtual Acad::ErrorStatus copyLayout(const ACHAR*, const ACHAR*) = 0;
  virtual Acad::ErrorStatus deleteLayout(const ACHAR*) = 0;
  virtual Acad::ErrorStatus createLayout(const ACHAR*, AcDbObjectId&, AcDbObjectId&,
                                         AcDbDatabase*) = 0;
  virtual Acad::ErrorStatus renameLayout(const ACHAR*, const ACHAR*) = 0;
  virtual Acad::ErrorStatus cloneLayout(AcDbLayout*, const ACHAR*, int) = 0;
  virtual AcDbObjectId getNonRectVPIdFromClipId(AcDbObjectId) = 0;
  virtual bool isVpnumClipped(int) = 0;
  virtual int countLayouts(AcDbDatabase*) = 0;
  virtual void addReactor(AcDbLayoutManagerReactor*) = 0;
  virtual void removeReactor(AcDbLayoutManagerReactor*) = 0;
};
