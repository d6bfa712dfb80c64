#include "database/Database.h"

#include <windows.h>

#include "database/Drawing.h"
#include "gate/HostError.h"

/// What leads from the interface to the content.
class AcDbDatabaseImp {
 public:
  explicit AcDbDatabaseImp(wb::DrawingDatabase& content) : content(content) {}

  static std::unique_ptr<AcDbDatabase> make(wb::DrawingDatabase& content) {
    auto database = std::unique_ptr<AcDbDatabase>(new AcDbDatabase);
    database->imp = new AcDbDatabaseImp(content);
    return database;
  }

  static wb::DrawingDatabase& contentOf(const AcDbDatabase& database) {
    return database.imp->content;
  }

  wb::DrawingDatabase& content;
};

AcDbDatabase::~AcDbDatabase() { delete imp; }

namespace wb {

DrawingDatabase::DrawingDatabase(Drawing& drawing)
    : drawing_(drawing), database_(AcDbDatabaseImp::make(*this)) {
  table = &add<BlockTableImp>();
}

DrawingDatabase::~DrawingDatabase() = default;

DrawingDatabase& DrawingDatabase::of(const AcDbDatabase& database) {
  return AcDbDatabaseImp::contentOf(database);
}

void DrawingDatabase::requireReadFrom(const std::string& bytes) const {
  try {
    groups.requireReadFrom(bytes);
  } catch (const HostError& error) {
    throw HostError(L"the file wouldn't be this drawing any more: " + error.reason);
  }
}

BlockRecordImp* DrawingDatabase::findRecord(std::wstring_view name) const {
  const auto found = byName.find(folded(name));
  return found == byName.end() ? nullptr : found->second;
}

LayoutImp* DrawingDatabase::findLayout(std::wstring_view name) const {
  for (LayoutImp* layout : layouts_) {
    if (folded(layout->layoutName) == folded(name)) return layout;
  }
  return nullptr;
}

BlockRecordImp& DrawingDatabase::recordNamed(const std::wstring& name) {
  BlockRecordImp*& slot = byName[folded(name)];
  if (!slot) {
    slot = &add<BlockRecordImp>();
    slot->blockName = name;
    slot->owner = table->id;
    records_.push_back(slot);
  }
  return *slot;
}

BlockRecordImp& DrawingDatabase::addNestedXref(const DxfBlock& block) {
  BlockRecordImp& record = recordNamed(block.name);
  record.path = block.path;
  record.isXref = true;
  record.erased = false;
  return record;
}

// R12 marks no classes.
std::optional<size_t> DrawingDatabase::findField(DxfEntry entry, int code,
                                                 std::string_view subclass) const {
  const auto index = fields(entry).find(code, subclass);
  return index ? index : fields(entry).find(code);
}

std::wstring DrawingDatabase::textOf(DxfEntry entry, int code, std::string_view subclass) const {
  const auto index = findField(entry, code, subclass);
  return text.decode(index ? groups.value(*index)
                           : groups.added(fields(entry).endOf(subclass), code));
}

void DrawingDatabase::setText(DxfEntry entry, int code, std::string_view subclass,
                              std::wstring_view value) {
  // The group keeps its bytes if it says the same already, in whichever spelling.
  if (textOf(entry, code, subclass) == value) return;
  const auto index = findField(entry, code, subclass);
  if (index) {
    groups.replace(*index, text.encode(value));
  } else {
    groups.addBefore(fields(entry).endOf(subclass), code, text.encode(value));
  }
}

std::wstring folded(std::wstring_view name) {
  std::wstring result(name);
  CharUpperBuffW(result.data(), static_cast<DWORD>(result.size()));
  return result;
}

}  // namespace wb
