#pragma once

#include "dbmain.h"

/// A tab of the drawing: model space or a sheet.
class AcDbLayout : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayout)
  ~AcDbLayout() override;

  /// A copy of the tab's name, freed by the caller with `acutDelString`.
  Acad::ErrorStatus getLayoutName(ACHAR*& pLayoutName) const;

 private:
  friend class AcDbObjectImp;
  AcDbLayout();
};
