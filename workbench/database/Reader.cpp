#include <algorithm>

#include "database/Database.h"

namespace wb {

namespace {

constexpr std::wstring_view modelSpaceName = L"*Model_Space";
constexpr std::wstring_view paperSpaceName = L"*Paper_Space";
constexpr std::string_view layoutClass = "AcDbLayout";

// Handles are hexadecimal numbers, written with or without leading zeros.
std::string handle(std::string_view word) {
  const size_t first = word.find_first_not_of('0');
  std::string result(first == std::string_view::npos ? std::string_view() : word.substr(first));
  std::transform(result.begin(), result.end(), result.begin(), [](char digit) {
    return digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 'a' + 'A') : digit;
  });
  return result;
}

// R12 calls the two spaces' blocks by other names where it lists them at all.
std::wstring todaysName(std::wstring name) {
  const std::wstring upper = folded(name);
  if (upper == L"$MODEL_SPACE") return std::wstring(modelSpaceName);
  if (upper == L"$PAPER_SPACE") return std::wstring(paperSpaceName);
  return name;
}

bool isSheet(const BlockRecordImp& record) {
  return folded(record.blockName).rfind(folded(paperSpaceName), 0) == 0;
}

}  // namespace

void DrawingDatabase::read(std::string bytes) {
  groups.parse(std::move(bytes));
  outline.read(groups);
  text = DxfText(outline.variable(groups, "$ACADVER"), outline.variable(groups, "$DWGCODEPAGE"));
  modelOnTop = outline.variable(groups, "$TILEMODE") != "0";
  readRecords();
  modelSpace_ = &recordNamed(std::wstring(modelSpaceName));
  paperSpace_ = &recordNamed(std::wstring(paperSpaceName));
  readBlocks();
  readEntities();
  readLayouts();
  completeLayouts();
  linkReferences();
}

void DrawingDatabase::readRecords() {
  for (const DxfEntry& entry : outline.table(groups, "BLOCK_RECORD")) {
    BlockRecordImp& record = recordNamed(todaysName(nameOf(entry)));
    byHandle[handle(fields(entry).word(5))] = &record;
    const std::string layout = handle(fields(entry).word(340));
    if (!layout.empty()) byLayoutHandle[layout] = &record;
  }
}

void DrawingDatabase::readBlocks() {
  const std::vector<DxfEntry>& entries = outline.entries("BLOCKS");
  for (size_t index = 0; index < entries.size();) {
    if (fields(entries[index]).type() == "BLOCK") {
      readBlock(entries, index);
    } else {
      ++index;
    }
  }
}

void DrawingDatabase::readBlock(const std::vector<DxfEntry>& entries, size_t& index) {
  const DxfEntry entry = entries[index++];
  const DxfBlock block(groups, text, entry);
  BlockRecordImp& record = recordNamed(todaysName(block.name));
  record.entry = entry;
  record.isXref = block.isXref();
  record.path = block.path;
  while (fields(entries[index]).type() != "ENDBLK") readEntity(entries, index, record);
  ++index;
}

void DrawingDatabase::readEntities() {
  const std::vector<DxfEntry>& entries = outline.entries("ENTITIES");
  for (size_t index = 0; index < entries.size();) {
    readEntity(entries, index, ownerOf(entries[index]));
  }
}

BlockRecordImp& DrawingDatabase::ownerOf(DxfEntry entry) const {
  const auto found = byHandle.find(handle(fields(entry).word(330)));
  if (found != byHandle.end()) return *found->second;
  return fields(entry).number(67) == 1 ? *paperSpace_ : *modelSpace_;
}

void DrawingDatabase::readEntity(const std::vector<DxfEntry>& entries, size_t& index,
                                 BlockRecordImp& owner) {
  DxfEntry entry = entries[index];
  const std::string_view type = fields(entry).type();
  if (type == "INSERT") return readReference(entries, index, owner);
  ++index;
  // Ends of sequences and attributes without a reference belong to nobody.
  if (type == "VERTEX" || type == "ATTRIB" || type == "SEQEND") return;
  if (type == "POLYLINE") entry.end = endOfSequence(entries, index, "VERTEX");
  if (type == "ATTDEF") owner.hasAttributeDefinitions = true;
  EntityImp* entity = nullptr;
  if (type == "TEXT") {
    TextImp& line = add<TextImp>();
    readText(line, entry);
    entity = &line;
  } else {
    entity = &add<EntityImp>();
  }
  entity->entry = entry;
  entity->owner = owner.id;
  owner.entities.push_back(entity->id);
}

size_t DrawingDatabase::endOfSequence(const std::vector<DxfEntry>& entries, size_t& index,
                                      std::string_view member) const {
  while (index < entries.size() && fields(entries[index]).type() == member) ++index;
  if (index < entries.size() && fields(entries[index]).type() == "SEQEND") ++index;
  return entries[index - 1].end;
}

void DrawingDatabase::readReference(const std::vector<DxfEntry>& entries, size_t& index,
                                    BlockRecordImp& owner) {
  ReferenceImp& reference = add<ReferenceImp>();
  reference.entry = entries[index++];
  reference.owner = owner.id;
  reference.blockName = todaysName(nameOf(reference.entry));
  const size_t first = index;
  reference.entry.end = endOfSequence(entries, index, "ATTRIB");
  for (size_t member = first; member < index; ++member) {
    if (fields(entries[member]).type() != "ATTRIB") continue;
    AttributeImp& attribute = add<AttributeImp>();
    readText(attribute, entries[member]);
    attribute.owner = reference.id;
    attribute.tag = nameOf(entries[member]);
    reference.attributes.push_back(attribute.id);
  }
  owner.entities.push_back(reference.id);
  references.push_back(&reference);
}

// 72 is the horizontal alignment; the vertical one is 73 in a text, 74 in an attribute.
void DrawingDatabase::readText(TextImp& line, DxfEntry entry) {
  line.entry = entry;
  const int vertical = fields(entry).type() == "TEXT" ? 73 : 74;
  line.leftAligned = fields(entry).number(72) == 0 && fields(entry).number(vertical) == 0;
}

void DrawingDatabase::readLayouts() {
  for (const DxfEntry& entry : outline.entries("OBJECTS")) {
    if (fields(entry).type() != "LAYOUT") continue;
    LayoutImp& layout = add<LayoutImp>();
    layout.entry = entry;
    layout.layoutName = textOf(entry, 1, layoutClass);
    const auto order = fields(entry).find(71, layoutClass);
    layout.tabOrder = order ? groups.number(*order) : 0;
    layouts_.push_back(&layout);
    auto record = byHandle.find(handle(fields(entry).word(330, layoutClass)));
    if (record == byHandle.end()) {
      record = byLayoutHandle.find(handle(fields(entry).word(5)));
      if (record == byLayoutHandle.end()) continue;
    }
    record->second->layout = layout.id;
  }
}

// Before release 2000 a file has no layouts; the host makes one for each space.
void DrawingDatabase::completeLayouts() {
  int sheet = 0;
  for (BlockRecordImp* record : records_) {
    const bool model = record == modelSpace_;
    if (!record->layout.isNull() || (!model && !isSheet(*record))) continue;
    LayoutImp& layout = add<LayoutImp>();
    layout.layoutName = L"Model";
    layout.tabOrder = model ? 0 : static_cast<int>(layouts_.size()) + 1;
    while (!model && (++sheet, findLayout(L"Layout" + std::to_wstring(sheet)))) {
    }
    if (!model) layout.layoutName = L"Layout" + std::to_wstring(sheet);
    layouts_.push_back(&layout);
    record->layout = layout.id;
  }
  std::stable_sort(layouts_.begin(), layouts_.end(), [this](LayoutImp* a, LayoutImp* b) {
    const bool firstIsModel = modelSpace_->layout == a->id;
    if (firstIsModel || modelSpace_->layout == b->id) return firstIsModel && a != b;
    return a->tabOrder < b->tabOrder;
  });
}

void DrawingDatabase::linkReferences() {
  for (ReferenceImp* reference : references) {
    BlockRecordImp* record = findRecord(reference->blockName);
    if (!record) continue;
    reference->record = record->id;
    reference->blockName = record->blockName;
    record->references.push_back(reference->id);
  }
}

}  // namespace wb
