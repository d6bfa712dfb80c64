#include "xref/XrefInfo.h"

#include <windows.h>

#include <aced.h>
#include <acedads.h>
#include <adscodes.h>
#include <dbents.h>
#include <dbsymtb.h>

#include "foundation/ArxPtr.h"
#include "vault/Messages.h"
#include "xref/SelectionSet.h"

namespace tessaro {

namespace {

enum class Pick { none, one, failed };

Pick pickImplied(AcDbObjectId& id) {
  SelectionSet picked;
  if (picked.get(L"I") != RTNORM) return Pick::none;
  if (picked.length() != 1) {
    acedPrompt(loadMessage(messages::oneObjectOnly));
    return Pick::failed;
  }
  return picked.at(0, id) ? Pick::one : Pick::failed;
}

bool pickByPrompt(AcDbObjectId& id) {
  ads_name entity;
  ads_point where;
  if (acedEntSel(loadMessage(messages::selectXrefPrompt), entity, where) != RTNORM) return false;
  acdbGetObjectId(id, entity);
  return true;
}

}  // namespace

bool readXrefBlock(AcDbObjectId blockId, XrefInfo& info) {
  ArxPtr<AcDbObject> object;
  acdbOpenAcDbObject(object.out(), blockId, AcDb::kForRead);
  const auto* block = AcDbBlockTableRecord::cast(object.get());
  if (!block || !block->isFromExternalReference()) return false;
  const ACHAR* name = nullptr;
  const ACHAR* path = nullptr;
  block->getName(name);
  block->pathName(path);
  info = {name ? name : L"", blockId, path ? path : L""};
  return true;
}

bool readXrefReference(AcDbObjectId entityId, XrefInfo& info) {
  ArxPtr<AcDbObject> object;
  acdbOpenAcDbObject(object.out(), entityId, AcDb::kForRead);
  const auto* reference = AcDbBlockReference::cast(object.get());
  return reference && readXrefBlock(reference->blockTableRecord(), info);
}

bool selectXref(XrefInfo& info, bool impliedOnly) {
  AcDbObjectId entity;
  switch (pickImplied(entity)) {
    case Pick::failed:
      return false;
    case Pick::none:
      if (impliedOnly || !pickByPrompt(entity)) return false;
      break;
    case Pick::one:
      break;
  }
  if (readXrefReference(entity, info)) return true;
  acedPrompt(loadMessage(messages::notAnXref));
  return false;
}

}  // namespace tessaro
