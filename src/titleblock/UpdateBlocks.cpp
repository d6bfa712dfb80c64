#include "titleblock/UpdateBlocks.h"

#include <acdblmgr.h>
#include <dbapserv.h>
#include <dbents.h>
#include <dblayout.h>
#include <dbsymtb.h>

#include "foundation/ArxPtr.h"
#include "foundation/CMap.h"
#include "foundation/DelPtr.h"
#include "foundation/HostString.h"
#include "titleblock/MatchTag.h"
#include "vault/CheckedCall.h"
#include "vault/ErrorReport.h"
#include "vault/Messages.h"

namespace tessaro {

namespace {

/// Block table records by name. Each is opened for read once and closed with the cache. A name
/// without a block has a null record.
class BlockRecordCache {
 public:
  BlockRecordCache() = default;
  BlockRecordCache(const BlockRecordCache&) = delete;
  BlockRecordCache& operator=(const BlockRecordCache&) = delete;
  ~BlockRecordCache();

  AcDbBlockTableRecord* find(const AcDbBlockTable& blocks, const CString& name);

 private:
  using Records = CMap<CString, const CString&, AcDbBlockTableRecord*, AcDbBlockTableRecord*>;

  Records records;
};

AcDbBlockTableRecord* BlockRecordCache::find(const AcDbBlockTable& blocks, const CString& name) {
  if (const auto* known = records.lookup(name)) return known->value;
  // The entry is made first, so that it owns the record as soon as that is open.
  records.setAt(name, nullptr);
  AcDbBlockTableRecord*& record = records.lookup(name)->value;
  blocks.getAt(name.c_str(), record, AcDb::kForRead);
  return record;
}

BlockRecordCache::~BlockRecordCache() {
  records.forEach([](const Records::Elem& element) {
    if (element.value) element.value->close();
  });
}

void updateVariable(const AcDbBlockTable& blocks, BlockRecordCache& records,
                    VaultCardVariable* variable, AcDbDatabase* database, bool currentLayoutOnly) {
  forEachMapping(variable, [&](VaultAttributeMapping* mapping) {
    AcDbBlockTableRecord* block = records.find(blocks, blockNameOf(mapping));
    if (!block || !block->hasAttributeDefinitions()) return;
    UpdateBlockReferences(*block, attributeTagOf(mapping), variable, currentLayoutOnly, database);
  });
}

void updateAll(BlockRecordCache& records, AcDbDatabase* database, const CardVariables& variables,
               bool currentLayoutOnly) {
  ArxPtr<AcDbBlockTable> blocks;
  database->getSymbolTable(blocks.out(), AcDb::kForRead);
  if (!blocks) _com_issue_error(E_FAIL);
  for (long index = 0; index < variables.count(); ++index) {
    updateVariable(*blocks, records, variables[index], database, currentLayoutOnly);
  }
}

/// @param owner the owner of a reference, a block table record; replaced by its layout
/// @return the layout's name, empty for a block definition
CString layoutNameOf(ArxPtr<AcDbObject>& owner) {
  const auto* block = AcDbBlockTableRecord::cast(owner.get());
  if (!block) return {};
  const AcDbObjectId layoutId = block->getLayoutId();
  owner.close();
  acdbOpenAcDbObject(owner.out(), layoutId, AcDb::kForRead);
  const auto* layout = AcDbLayout::cast(owner.get());
  if (!layout) return {};
  HostString name;
  layout->getLayoutName(name.out());
  return name.text();
}

bool isActiveLayout(const CString& layoutName) {
  const ACHAR* active = acdbHostApplicationServices()->layoutManager()->findActiveLayout(true);
  return lstrcmpiW(layoutName.c_str(), active) == 0;
}

/// Converts a value to a text. A value without a text form, such as that of a variable that isn't
/// set for the layout, is the empty text.
const wchar_t* asText(_variant_t& value) {
  try {
    if (value.vt != VT_BSTR) value.ChangeType(VT_BSTR);
  } catch (const _com_error&) {
    return L"";
  }
  return value.bstrVal ? value.bstrVal : L"";
}

/// @param configuration a reused string for the client: the layout of the previous reference, of
/// this one afterwards
void updateReference(AcDbBlockReference& reference, const CString& pattern,
                     VaultCardVariable* variable, bool currentLayoutOnly, AcDbDatabase* database,
                     _bstr_t& configuration) {
  ArxPtr<AcDbObject> owner;
  if (acdbOpenAcDbObject(owner.out(), reference.ownerId(), AcDb::kForRead) != Acad::eOk) return;
  const CString layoutName = layoutNameOf(owner);
  if (currentLayoutOnly ? !isActiveLayout(layoutName) : layoutName.empty()) return;
  if (layoutName != static_cast<const wchar_t*>(configuration)) configuration = layoutName.c_str();
  _variant_t value = valueFor(variable, configuration);
  SetAttributeValue(reference, pattern, asText(value), database);
}

/// The tag's text is freed before the attribute is changed.
bool hasTag(const AcDbAttribute& attribute, const CString& pattern) {
  const HostString tag(attribute.tag());
  return MatchTag(tag.text(), pattern);
}

void adjustAlignment(AcDbAttribute& attribute, AcDbDatabase* database) {
  AcDbHostApplicationServices* services = acdbHostApplicationServices();
  AcDbDatabase* const working = services->workingDatabase();
  services->setWorkingDatabase(database);
  attribute.adjustAlignment(database);
  services->setWorkingDatabase(working);
}

}  // namespace

void UpdateBlocks(AppContext& app, const VaultClientLegacyPtr& client, AcDbDatabase* database,
                  const CardVariables& variables, bool currentLayoutOnly) {
  BlockRecordCache records;
  try {
    updateAll(records, database, variables, currentLayoutOnly);
  } catch (const _com_error& error) {
    reportBorderError(app, client, error);
  }
}

void UpdateBlockReferences(AcDbBlockTableRecord& block, const CString& pattern,
                           VaultCardVariable* variable, bool currentLayoutOnly,
                           AcDbDatabase* database) {
  DelPtr<AcDbBlockReferenceIdIterator> references;
  block.newBlockReferenceIdIterator(references.out());
  if (!references) return;
  _bstr_t configuration(L"");
  for (references->start(); !references->done(); references->step()) {
    ArxPtr<AcDbBlockReference> reference;
    references->getBlockReference(reference.out(), AcDb::kForWrite);
    if (!reference) continue;
    updateReference(*reference, pattern, variable, currentLayoutOnly, database, configuration);
  }
}

bool SetAttributeValue(AcDbBlockReference& reference, const CString& pattern, const wchar_t* value,
                       AcDbDatabase* database) {
  const DelPtr<AcDbObjectIterator> attributes(reference.attributeIterator());
  if (!attributes) return false;
  for (attributes->start(); !attributes->done(); attributes->step()) {
    ArxPtr<AcDbAttribute> attribute;
    if (reference.openAttribute(attribute.out(), attributes->objectId(), AcDb::kForWrite) !=
        Acad::eOk) {
      return false;
    }
    if (!hasTag(*attribute, pattern)) continue;
    if (attribute->setTextString(value) != Acad::eOk) return false;
    adjustAlignment(*attribute, database);
    return true;
  }
  return false;
}

void reportBorderError(AppContext& app, const VaultClientLegacyPtr& client,
                       const _com_error& error) {
  reportComError(app, client, error, loadMessage(messages::borderUpdateFailed));
}

}  // namespace tessaro
