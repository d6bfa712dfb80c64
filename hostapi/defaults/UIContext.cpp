#include <aced.h>

void* AcEdUIContext::getMenuContext(
    const AcRxClass*, const AcDbObjectIdArray&,
    const AcArray<AcDbFullSubentPathArray,
                  AcArrayObjectCopyReallocator<AcDbFullSubentPathArray>>&) {
  return nullptr;
}
void AcEdUIContext::OnUpdateMenu() {}
