#include "database/Drawing.h"

#include <algorithm>
#include <charconv>

#include "core/Text.h"
#include "database/Database.h"
#include "database/DatabaseState.h"
#include "database/File.h"
#include "database/Xrefs.h"

namespace wb {

namespace {

// Every CAD program reads this much of R12.
constexpr char blankFile[] =
    "  0\r\nSECTION\r\n  2\r\nHEADER\r\n  9\r\n$ACADVER\r\n  1\r\nAC1009\r\n  0\r\nENDSEC\r\n"
    "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n";

const LayoutImp& layoutOf(const BlockRecordImp& record) {
  return static_cast<const LayoutImp&>(*AcDbObjectImp::find(record.layout));
}

template <class T>
T& as(AcDbObjectId id) {
  return static_cast<T&>(*AcDbObjectImp::find(id));
}

}  // namespace

Drawing::Drawing()
    : database_(std::make_unique<DrawingDatabase>(*this)), xrefs_(std::make_unique<Xrefs>(*this)) {
  databaseState().drawings.push_back(this);
}

Drawing::~Drawing() {
  std::vector<Drawing*>& all = databaseState().drawings;
  all.erase(std::remove(all.begin(), all.end(), this), all.end());
}

std::unique_ptr<Drawing> Drawing::read(std::string bytes) {
  std::unique_ptr<Drawing> drawing(new Drawing);
  DrawingDatabase& content = *drawing->database_;
  content.read(std::move(bytes));
  drawing->currentSheet_ = layoutOf(content.paperSpace()).layoutName;
  drawing->currentLayout_ = content.startsInModelSpace() ? layoutOf(content.modelSpace()).layoutName
                                                         : drawing->currentSheet_;
  return drawing;
}

std::unique_ptr<Drawing> Drawing::load(const std::filesystem::path& path) {
  // Whoever has the file open for writing lets others read it, or nobody gets in.
  std::unique_ptr<Drawing> drawing =
      read(readAll(openToRead(path, FILE_SHARE_READ | FILE_SHARE_WRITE).get()));
  drawing->path_ = path;
  drawing->xrefs_->loadAll();
  return drawing;
}

std::unique_ptr<Drawing> Drawing::blank() { return read(blankFile); }

void Drawing::save(const std::filesystem::path& path) {
  replaceDrawing(path, database_->bytes(),
                 [this](const std::string& written) { database_->requireReadFrom(written); });
  path_ = path;
}

void Drawing::close() {
  closed_ = true;
  xrefs_->letGo();
}

AcDbDatabase* Drawing::database() const { return database_->database(); }

Drawing* Drawing::of(const AcDbDatabase* database) {
  for (Drawing* drawing : databaseState().drawings) {
    if (drawing->database() == database && !drawing->closed()) return drawing;
  }
  return nullptr;
}

std::vector<std::wstring> Drawing::layouts() const {
  std::vector<std::wstring> names;
  for (const LayoutImp* layout : database_->layouts()) names.push_back(layout->layoutName);
  return names;
}

bool Drawing::setCurrentLayout(std::wstring_view name) {
  const LayoutImp* layout = database_->findLayout(name);
  if (!layout) return false;
  currentLayout_ = layout->layoutName;
  ++revision_;
  if (layout->id != database_->modelSpace().layout) currentSheet_ = currentLayout_;
  return true;
}

std::vector<Drawing::AttributeText> Drawing::attributes(std::wstring_view block,
                                                        std::wstring_view tag) const {
  std::vector<AttributeText> result;
  const BlockRecordImp* record = database_->findRecord(block);
  if (!record) return result;
  for (const AcDbObjectId id : record->references) {
    const auto& reference = as<ReferenceImp>(id);
    if (reference.erased) continue;
    const auto& owner = as<BlockRecordImp>(reference.owner);
    const std::wstring layout = owner.layout.isNull() ? std::wstring() : layoutOf(owner).layoutName;
    for (const AcDbObjectId attributeId : reference.attributes) {
      const auto& attribute = as<AttributeImp>(attributeId);
      if (attribute.erased || folded(attribute.tag) != folded(tag)) continue;
      result.push_back({layout, attribute.text(), attribute.aligned});
    }
  }
  return result;
}

std::vector<AcDbObjectId> Drawing::entities(std::wstring_view name) const {
  const bool byNumber = name.substr(0, 1) == L"#";
  std::vector<AcDbObjectId> result;
  const LayoutImp* layout = database_->findLayout(currentLayout_);
  for (const BlockRecordImp* space : database_->records()) {
    if (space->layout.isNull() || space->layout != layout->id) continue;
    for (const AcDbObjectId id : space->entities) {
      const auto& entity = as<EntityImp>(id);
      if (entity.erased) continue;
      const auto* reference = dynamic_cast<const ReferenceImp*>(&entity);
      const bool wanted =
          byNumber ? !reference : reference && folded(reference->blockName) == folded(name);
      if (wanted) result.push_back(id);
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
  database_->addRemark("edit " + std::to_string(++databaseState().edits));
  touch();
}

bool Drawing::erase(AcDbObjectId id) {
  auto* entity = dynamic_cast<EntityImp*>(AcDbObjectImp::find(id));
  if (!entity || &entity->database != database_.get() || entity->erased) return false;
  entity->erased = true;
  if (const auto* reference = dynamic_cast<const ReferenceImp*>(entity)) {
    for (const AcDbObjectId attribute : reference->attributes) {
      as<AttributeImp>(attribute).erased = true;
    }
  }
  database_->remove(entity->entry);
  touch();
  return true;
}

}  // namespace wb
