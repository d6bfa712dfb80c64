#pragma once

#include <dbmain.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/Objects.h"
#include "dxf/Block.h"
#include "dxf/Groups.h"
#include "dxf/Outline.h"
#include "dxf/Source.h"
#include "dxf/Text.h"

namespace wb {

class Drawing;

/// A name of the drawing's tables in the form that tells names apart: in upper case.
std::wstring folded(std::wstring_view name);

/// The drawing's objects as its DXF groups describe them.
class DrawingDatabase {
 public:
  explicit DrawingDatabase(Drawing& drawing);
  ~DrawingDatabase();
  DrawingDatabase(const DrawingDatabase&) = delete;
  DrawingDatabase& operator=(const DrawingDatabase&) = delete;

  static DrawingDatabase& of(const AcDbDatabase& database);

  /// @throws HostError if the bytes are no complete ASCII DXF
  void read(std::string bytes);
  std::string bytes() const { return groups.bytes(); }
  /// @throws HostError unless a reader of `bytes` finds this drawing in them, group by group
  void requireReadFrom(const std::string& bytes) const;

  /// What the drawing's file says now, changes included.
  DxfSource source() const { return {groups, outline, text}; }

  AcDbDatabase* database() const { return database_.get(); }
  Drawing& drawing() const { return drawing_; }

  BlockTableImp& blockTable() { return *table; }
  /// Ignoring case; null if there is none.
  BlockRecordImp* findRecord(std::wstring_view name) const;
  LayoutImp* findLayout(std::wstring_view name) const;
  const std::vector<BlockRecordImp*>& records() const { return records_; }
  /// Model space first, then by the order of the tabs.
  const std::vector<LayoutImp*>& layouts() const { return layouts_; }
  BlockRecordImp& modelSpace() const { return *modelSpace_; }
  /// The sheet that is current, or was last.
  BlockRecordImp& paperSpace() const { return *paperSpace_; }
  /// True if model space is on top, by the file.
  bool startsInModelSpace() const { return modelOnTop; }
  /// The record of an xref that another xref brings in; it isn't written to the file.
  BlockRecordImp& addNestedXref(const DxfBlock& block);

  /// The first group of that code in an object, behind the mark of the class if one is named,
  /// decoded.
  std::wstring textOf(DxfEntry entry, int code, std::string_view subclass = {}) const;
  /// Changes it, or adds it behind the others of the class `subclass`.
  void setText(DxfEntry entry, int code, std::string_view subclass, std::wstring_view text);
  /// Puts a remark, which no reader of the file takes for a part of the drawing, before its end; it
  /// takes the place of the one that was put there since the file was read.
  void addRemark(std::string text) { groups.addBefore(groups.size() - 1, 999, std::move(text)); }
  /// Takes an object's groups out of the file.
  void remove(DxfEntry entry) { groups.remove(entry.begin, entry.end); }

 private:
  template <class T>
  T& add() {
    auto object = std::make_unique<T>(*this);
    T& result = *object;
    objects.push_back(std::move(object));
    return result;
  }
  BlockRecordImp& recordNamed(const std::wstring& name);
  DxfFields fields(DxfEntry entry) const { return {groups, entry}; }
  std::wstring nameOf(DxfEntry entry) const { return text.decode(fields(entry).word(2)); }
  std::optional<size_t> findField(DxfEntry entry, int code, std::string_view subclass) const;
  void readRecords();
  void readBlocks();
  void readBlock(const std::vector<DxfEntry>& entries, size_t& index);
  void readEntities();
  /// Reads the entity at `index` with what belongs to it, and goes behind it.
  void readEntity(const std::vector<DxfEntry>& entries, size_t& index, BlockRecordImp& owner);
  void readReference(const std::vector<DxfEntry>& entries, size_t& index, BlockRecordImp& owner);
  size_t endOfSequence(const std::vector<DxfEntry>& entries, size_t& index,
                       std::string_view member) const;
  void readText(TextImp& line, DxfEntry entry);
  void readLayouts();
  void completeLayouts();
  void linkReferences();
  BlockRecordImp& ownerOf(DxfEntry entry) const;

  Drawing& drawing_;
  std::unique_ptr<AcDbDatabase> database_;
  DxfGroups groups;
  DxfOutline outline;
  DxfText text;
  std::vector<std::unique_ptr<AcDbObjectImp>> objects;
  BlockTableImp* table = nullptr;
  std::vector<BlockRecordImp*> records_;
  std::vector<LayoutImp*> layouts_;
  std::map<std::wstring, BlockRecordImp*> byName;
  std::map<std::string, BlockRecordImp*> byHandle;
  std::map<std::string, BlockRecordImp*> byLayoutHandle;
  std::vector<ReferenceImp*> references;
  BlockRecordImp* modelSpace_ = nullptr;
  BlockRecordImp* paperSpace_ = nullptr;
  bool modelOnTop = true;
};

}  // namespace wb
