#include <dbapserv.h>

#include "database/Drawing.h"
#include "notserved/Editor.h"

namespace {

class LayoutManager : public wb::NotServedLayoutManager {
 public:
  const ACHAR* findActiveLayout(bool allowModel) override {
    const AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
    const wb::Drawing* drawing = wb::Drawing::of(working);
    if (!drawing) return nullptr;
    found = allowModel ? drawing->currentLayout() : drawing->currentSheet();
    return found.c_str();
  }

 private:
  std::wstring found;
};

}  // namespace

AcDbLayoutManager* AcDbHostApplicationServices::layoutManager() const {
  static LayoutManager manager;
  return &manager;
}
