#include <algorithm>

#include "database/Drawing.h"

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
  if (sameName(name, L"$MODEL_SPACE")) return std::wstring(modelSpaceName);
  if (sameName(name, L"$PAPER_SPACE")) return std::wstring(paperSpaceName);
  return name;
}

bool isSheet(const BlockRecordImp& record) {
  return sameName(std::wstring_view(record.name).substr(0, paperSpaceName.size()), paperSpaceName);
}

}  // namespace

/// Makes the objects that a drawing's file describes.
class DrawingReader {
 public:
  explicit DrawingReader(Drawing& drawing) : drawing(drawing), file(drawing.file) {}

  void read() {
    readRecords();
    modelSpace = &drawing.recordNamed(std::wstring(modelSpaceName));
    paperSpace = &drawing.recordNamed(std::wstring(paperSpaceName));
    drawing.modelSpace_ = modelSpace;
    readBlocks();
    for (select("ENTITIES"); at < entries->size();) readEntity(ownerOf((*entries)[at]));
    readLayouts();
    completeLayouts();
    linkReferences();
    drawing.currentSheet_ = paperSpace->layout->name;
    const bool modelOnTop = file.variable("$TILEMODE") != "0";
    drawing.currentLayout_ = modelOnTop ? modelSpace->layout->name : drawing.currentSheet_;
  }

 private:
  using RecordsByHandle = std::map<std::string, BlockRecordImp*>;

  DxfFields fields(DxfEntry entry) const { return file.fields(entry); }
  std::wstring nameOf(DxfEntry entry) const { return file.text.decode(fields(entry).word(2)); }

  /// From here on entries are read from the section's first one on.
  void select(std::string_view section) {
    entries = &file.entries(section);
    at = 0;
  }
  /// The type of the next entry; empty behind the last one.
  std::string_view type() const {
    return at < entries->size() ? fields((*entries)[at]).type() : std::string_view();
  }

  void readRecords() {
    for (const DxfEntry& entry : file.table("BLOCK_RECORD")) {
      BlockRecordImp& record = drawing.recordNamed(todaysName(nameOf(entry)));
      byHandle[handle(fields(entry).word(5))] = &record;
      const std::string layout = handle(fields(entry).word(340));
      if (!layout.empty()) byLayoutHandle[layout] = &record;
    }
  }

  void readBlocks() {
    for (select("BLOCKS"); at < entries->size(); ++at) {
      if (type() != "BLOCK") continue;
      const DxfEntry entry = (*entries)[at++];
      const DxfBlock block(file, entry);
      BlockRecordImp& record = drawing.recordNamed(todaysName(block.name));
      record.entry = entry;
      record.isXref = block.isXref;
      record.path = block.path;
      while (type() != "ENDBLK") readEntity(record);
    }
  }

  BlockRecordImp& ownerOf(DxfEntry entry) const {
    const auto found = byHandle.find(handle(fields(entry).word(330)));
    if (found != byHandle.end()) return *found->second;
    return fields(entry).number(67) == 1 ? *paperSpace : *modelSpace;
  }

  /// Reads the next entity with what belongs to it.
  void readEntity(BlockRecordImp& owner) {
    const std::string_view kind = type();
    DxfEntry entry = (*entries)[at++];
    // Ends of sequences and attributes without a reference belong to nothing.
    if (kind == "VERTEX" || kind == "ATTRIB" || kind == "SEQEND") return;
    if (kind == "POLYLINE") entry.end = endOfSequence("VERTEX");
    if (kind == "ATTDEF") owner.hasAttributeDefinitions = true;
    EntityImp* entity = nullptr;
    if (kind == "INSERT") {
      entity = &readReference(entry);
    } else if (kind == "TEXT") {
      entity = &readText<TextImp>(entry, 73);
    } else {
      entity = &drawing.add<EntityImp>();
    }
    entity->entry = entry;
    entity->owner = &owner;
    owner.entities.push_back(entity);
  }

  /// Skips the members of a sequence and its end mark.
  /// @return the index behind their groups
  size_t endOfSequence(std::string_view member) {
    while (type() == member) ++at;
    if (type() == "SEQEND") ++at;
    return (*entries)[at - 1].end;
  }

  ReferenceImp& readReference(DxfEntry& entry) {
    ReferenceImp& reference = drawing.add<ReferenceImp>();
    reference.name = todaysName(nameOf(entry));
    for (; type() == "ATTRIB"; ++at) {
      const DxfEntry member = (*entries)[at];
      AttributeImp& attribute = readText<AttributeImp>(member, 74);
      attribute.entry = member;
      attribute.owner = &reference;
      attribute.name = nameOf(member);
      reference.attributes.push_back(&attribute);
    }
    entry.end = endOfSequence("ATTRIB");
    references.push_back(&reference);
    return reference;
  }

  /// @param vertical the code of the vertical alignment; 72 is that of the horizontal one
  template <class Imp>
  Imp& readText(DxfEntry entry, int vertical) {
    Imp& line = drawing.add<Imp>();
    line.leftAligned = fields(entry).number(72) == 0 && fields(entry).number(vertical) == 0;
    return line;
  }

  void readLayouts() {
    for (const DxfEntry& entry : file.entries("OBJECTS")) {
      if (fields(entry).type() != "LAYOUT") continue;
      LayoutImp& layout = drawing.add<LayoutImp>();
      layout.entry = entry;
      layout.name = file.textOf(entry, 1, layoutClass);
      layout.tabOrder = fields(entry).number(71, layoutClass);
      drawing.layouts_.push_back(&layout);
      auto record = byHandle.find(handle(fields(entry).word(330, layoutClass)));
      if (record == byHandle.end()) {
        record = byLayoutHandle.find(handle(fields(entry).word(5)));
        if (record == byLayoutHandle.end()) continue;
      }
      record->second->layout = &layout;
    }
  }

  // Before release 2000 a file has no layouts; the host makes one for each space.
  void completeLayouts() {
    int sheet = 0;
    for (BlockRecordImp* record : drawing.records_) {
      const bool model = record == modelSpace;
      if (record->layout || (!model && !isSheet(*record))) continue;
      std::wstring name = L"Model";
      while (!model && drawing.findLayout(name = L"Layout" + std::to_wstring(++sheet))) continue;
      LayoutImp& layout = drawing.add<LayoutImp>();
      layout.name = name;
      layout.tabOrder = model ? 0 : static_cast<int>(drawing.layouts_.size()) + 1;
      drawing.layouts_.push_back(&layout);
      record->layout = &layout;
    }
    const auto place = [&](const LayoutImp* layout) {
      return std::pair(layout != modelSpace->layout, layout->tabOrder);
    };
    std::stable_sort(drawing.layouts_.begin(), drawing.layouts_.end(),
                     [&](auto* left, auto* right) { return place(left) < place(right); });
  }

  void linkReferences() {
    for (ReferenceImp* reference : references) {
      BlockRecordImp* record = drawing.findRecord(reference->name);
      if (!record) continue;
      reference->record = record;
      reference->name = record->name;
      record->references.push_back(reference);
    }
  }

  Drawing& drawing;
  const DxfFile& file;
  const std::vector<DxfEntry>* entries = nullptr;
  size_t at = 0;
  RecordsByHandle byHandle;
  RecordsByHandle byLayoutHandle;
  std::vector<ReferenceImp*> references;
  BlockRecordImp* modelSpace = nullptr;
  BlockRecordImp* paperSpace = nullptr;
};

void Drawing::readObjects() { DrawingReader(*this).read(); }

}  // namespace wb
