#include "database/Drawing.h"

#include <dbapserv.h>

#include <dbmain.h>

#include <algorithm>
#include <charconv>
#include <iterator>

#include "database/File.h"
#include "database/Xrefs.h"

/// Makes what only the host may make.
class AcDbDatabaseImp {
 public:
  static std::unique_ptr<AcDbDatabase> make() {
    return std::unique_ptr<AcDbDatabase>(new AcDbDatabase);
  }
};

AcDbDatabase::~AcDbDatabase() = default;

namespace wb {

namespace {

// Every CAD program reads this much of R12.
constexpr char blankFile[] =
    "  0\r\nSECTION\r\n  2\r\nHEADER\r\n  9\r\n$ACADVER\r\n  1\r\nAC1009\r\n  0\r\nENDSEC\r\n"
    "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n";

}  // namespace

Drawing::Drawing(std::string bytes)
    : state(databaseState()),
      file(std::move(bytes)),
      database_(AcDbDatabaseImp::make()),
      xrefs_(std::make_unique<Xrefs>(*this)),
      table(&add<BlockTableImp>()) {
  readObjects();
  state.drawings.push_back(this);
}

Drawing::~Drawing() {
  auto& all = state.drawings;
  all.erase(std::remove(all.begin(), all.end(), this), all.end());
}

std::unique_ptr<Drawing> Drawing::load(const std::filesystem::path& path) {
  // Whoever has the file open for writing lets others read it, or nobody can open it.
  std::unique_ptr<Drawing> drawing(
      new Drawing(readAll(*openToRead(path, FILE_SHARE_READ | FILE_SHARE_WRITE))));
  drawing->path_ = path;
  drawing->xrefs_->loadAll();
  return drawing;
}

std::unique_ptr<Drawing> Drawing::blank() {
  return std::unique_ptr<Drawing>(new Drawing(blankFile));
}

void Drawing::save(const std::filesystem::path& path) {
  replaceDrawing(path, file.groups.bytes(), [this](const std::string& written) {
    try {
      file.groups.requireReadFrom(written);
    } catch (const HostError& error) {
      throw HostError(L"the file wouldn't be this drawing any more: " + error.reason);
    }
  });
  path_ = path;
}

void Drawing::close() {
  closed_ = true;
  xrefs_->closeFiles();
}

Drawing* Drawing::of(const AcDbDatabase* database) {
  for (Drawing* drawing : databaseState().drawings) {
    if (drawing->database() == database && !drawing->closed()) return drawing;
  }
  return nullptr;
}

Drawing& Drawing::require(const AcDbDatabase* database) {
  Drawing* const drawing =
      of(database ? database : acdbHostApplicationServices()->workingDatabase());
  if (!drawing) throw HostError(L"no drawing is open", Acad::eNoDatabase);
  return *drawing;
}

BlockRecordImp* Drawing::findRecord(std::wstring_view name) const {
  const auto found = byName.find(std::wstring(name));
  return found == byName.end() ? nullptr : found->second;
}

const LayoutImp* Drawing::findLayout(std::wstring_view name) const {
  for (const LayoutImp* layout : layouts_) {
    if (sameName(layout->name, name)) return layout;
  }
  return nullptr;
}

BlockRecordImp& Drawing::recordNamed(const std::wstring& name) {
  BlockRecordImp*& record = byName[name];
  if (!record) {
    record = &add<BlockRecordImp>();
    record->name = name;
    record->owner = table;
    records_.push_back(record);
  }
  return *record;
}

BlockRecordImp& Drawing::addNestedXref(const DxfBlock& block) {
  BlockRecordImp& record = recordNamed(block.name);
  record.path = block.path;
  record.isXref = true;
  record.erased = false;
  return record;
}

std::vector<std::wstring> Drawing::layouts() const {
  std::vector<std::wstring> names;
  names.reserve(layouts_.size());
  for (const LayoutImp* layout : layouts_) names.push_back(layout->name);
  return names;
}

bool Drawing::setCurrentLayout(std::wstring_view name) {
  const LayoutImp* layout = findLayout(name);
  if (!layout) return false;
  currentLayout_ = layout->name;
  ++revision_;
  if (layout != modelSpace_->layout) currentSheet_ = currentLayout_;
  return true;
}

std::vector<Drawing::AttributeText> Drawing::attributes(std::wstring_view block,
                                                        std::wstring_view tag) const {
  std::vector<AttributeText> result;
  const BlockRecordImp* record = findRecord(block);
  if (!record) return result;
  for (const ReferenceImp* reference : record->references) {
    if (reference->erased) continue;
    const LayoutImp* layout = static_cast<const BlockRecordImp*>(reference->owner)->layout;
    for (const AttributeImp* attribute : reference->attributes) {
      if (attribute->erased || !sameName(attribute->name, tag)) continue;
      result.push_back(
          {layout ? layout->name : std::wstring(), attribute->text(), attribute->aligned});
    }
  }
  return result;
}

std::vector<const EntityImp*> Drawing::currentEntities() const {
  std::vector<const EntityImp*> result;
  const LayoutImp* layout = findLayout(currentLayout_);
  for (const BlockRecordImp* space : records_) {
    if (!layout || space->layout != layout) continue;
    std::copy_if(space->entities.begin(), space->entities.end(), std::back_inserter(result),
                 [](const EntityImp* entity) { return !entity->erased; });
  }
  return result;
}

std::vector<AcDbObjectId> Drawing::entities(std::wstring_view name) const {
  const bool byNumber = name.substr(0, 1) == L"#";
  std::vector<AcDbObjectId> result;
  for (const EntityImp* entity : currentEntities()) {
    const bool isReference = dynamic_cast<const ReferenceImp*>(entity);
    if (byNumber ? !isReference : isReference && sameName(entity->name, name)) {
      result.push_back(entity->id);
    }
  }
  if (!byNumber) return result;
  const std::string digits = toUtf8(name.substr(1));
  const char* end = digits.data() + digits.size();
  size_t number = 0;
  const bool valid = std::from_chars(digits.data(), end, number).ptr == end;
  if (!valid || number < 1 || number > result.size()) return {};
  return {result[number - 1]};
}

void Drawing::edit() {
  addRemark("edit " + std::to_string(++state.edits));
  touch();
}

void Drawing::addRemark(std::string text) {
  file.groups.addBefore(file.groups.size() - 1, 999, std::move(text));
}

bool Drawing::erase(AcDbObjectId id) {
  auto* entity = dynamic_cast<EntityImp*>(AcDbObjectImp::find(id));
  if (!entity || &entity->drawing != this || entity->erased) return false;
  entity->erased = true;
  if (const auto* reference = dynamic_cast<const ReferenceImp*>(entity)) {
    for (AttributeImp* attribute : reference->attributes) attribute->erased = true;
  }
  file.groups.remove(entity->entry.begin, entity->entry.end);
  touch();
  return true;
}

}  // namespace wb
