#pragma once

#include <dbid.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/Accounts.h"
#include "core/SessionState.h"
#include "core/Text.h"
#include "database/Objects.h"
#include "dxf/File.h"

class AcDbGraph;

namespace wb {

class Xrefs;
struct DatabaseState;

/// The content behind an `AcDbDatabase`: a DXF file in memory, and the objects in it.
class Drawing {
 public:
  /// Reads ASCII DXF of any release from R12 on, and the xrefs that it names.
  /// @throws HostError for anything else; the file is left as it is
  static std::unique_ptr<Drawing> load(const std::filesystem::path& path);
  /// An empty drawing without a name.
  static std::unique_ptr<Drawing> blank();
  ~Drawing();
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  /// Writes the drawing; what wasn't changed keeps its bytes. The file is the old one or the new
  /// one at any moment.
  /// @throws HostError if it can't be written, or wouldn't be read as this drawing again
  void save(const std::filesystem::path& path);
  const std::filesystem::path& path() const { return path_; }

  AcDbDatabase* database() const { return database_.get(); }
  /// The drawing of a database, null if it is closed.
  static Drawing* of(const AcDbDatabase* database);
  /// The drawing of a database, or of the working one if it is null.
  /// @throws HostError if no drawing is open
  static Drawing& require(const AcDbDatabase* database);

  DatabaseState& state;  ///< of the session that it was made in
  DxfFile file;          ///< with the changes since it was read

  /// The variable DBMOD.
  short dbmod() const { return dbmod_; }
  void setDbmod(short value) { dbmod_ = value; }
  /// The user changes something: the content is another one each time.
  void edit();
  /// Puts a remark, which no reader of the file takes for a part of the drawing, before the file's
  /// end; it replaces the one that was put there since the file was read.
  void addRemark(std::string text);
  /// Notes a change of the drawing's content.
  void touch() {
    dbmod_ = static_cast<short>(dbmod_ | 1);
    ++revision_;
  }
  /// Another number after each change of what is seen of the drawing.
  unsigned revision() const { return revision_; }

  /// Whether an object may be opened for write now. The editor sets it: a drawing that is open in a
  /// document needs a lock of it.
  std::function<bool()> mayBeWritten = [] { return true; };

  /// The tabs in the order of the file, model space first.
  std::vector<std::wstring> layouts() const;
  const std::wstring& currentLayout() const { return currentLayout_; }
  /// The current tab, or the sheet that was current last if model space is on top.
  const std::wstring& currentSheet() const { return currentSheet_; }
  /// Makes a tab current; case is ignored. False if there is none of that name.
  bool setCurrentLayout(std::wstring_view name);

  /// An attribute of one reference to a block.
  struct AttributeText {
    std::wstring layout;  ///< tab that shows the reference; empty inside another block
    std::wstring value;
    bool aligned;  ///< false if the text was changed and not placed anew, as its alignment asks
  };
  /// The attributes `tag` of the references to `block`, in the order of the references.
  std::vector<AttributeText> attributes(std::wstring_view block, std::wstring_view tag) const;

  /// What stands on the current tab and isn't erased.
  std::vector<const EntityImp*> currentEntities() const;
  /// The references to a block that stand on the current tab, or for "#N" the N-th entity (from 1)
  /// there that is no block reference. Empty if there is none.
  std::vector<AcDbObjectId> entities(std::wstring_view name) const;
  /// Erases an entity, as the user does. False if it is no entity or erased already.
  bool erase(AcDbObjectId id);

  /// The drawing is closed, though it may stay in memory: the xrefs' files are released, and no
  /// object can be opened any more.
  void close();
  bool closed() const { return closed_; }

  const BlockTableImp& blockTable() const { return *table; }
  /// Ignoring case; null if there is none.
  BlockRecordImp* findRecord(std::wstring_view name) const;
  const std::vector<BlockRecordImp*>& records() const { return records_; }
  const BlockRecordImp& modelSpace() const { return *modelSpace_; }
  /// The record of an xref that another xref brings in; it isn't written to the file.
  BlockRecordImp& addNestedXref(const DxfBlock& block);
  Xrefs& xrefs() const { return *xrefs_; }

 private:
  friend class DrawingReader;
  explicit Drawing(std::string bytes);
  /// Makes the objects that the file describes.
  void readObjects();
  template <class Imp>
  Imp& add() {
    auto object = AcDbObjectImp::make<Imp>(*this);
    Imp& result = *object;
    objects.push_back(std::move(object));
    return result;
  }
  BlockRecordImp& recordNamed(const std::wstring& name);
  const LayoutImp* findLayout(std::wstring_view name) const;

  std::filesystem::path path_;
  std::unique_ptr<AcDbDatabase> database_;
  std::unique_ptr<Xrefs> xrefs_;
  std::vector<std::unique_ptr<AcDbObjectImp>> objects;
  const BlockTableImp* table;
  std::vector<BlockRecordImp*> records_;
  std::map<std::wstring, BlockRecordImp*, LessIgnoringCase> byName;
  std::vector<LayoutImp*> layouts_;  ///< model space first, then by the order of the tabs
  const BlockRecordImp* modelSpace_ = nullptr;
  std::wstring currentLayout_;
  std::wstring currentSheet_;
  short dbmod_ = 0;
  unsigned revision_ = 0;
  bool closed_ = false;
};

/// What a session has of drawings and of the objects in them.
struct DatabaseState {
  std::vector<Drawing*> drawings;                             ///< in memory
  std::unordered_map<Adesk::IntPtr, AcDbObjectImp*> objects;  ///< by their ids
  /// An id is never used twice, so that one of a closed drawing finds nothing.
  Adesk::IntPtr lastId = 0x1000;
  unsigned edits = 0;  ///< what users changed
  HandleLedger<const void*> iterators{L"iterator"};
  HandleLedger<const AcDbGraph*> graphs{L"graph"};  ///< those that the host filled
  std::wstring activeLayout;  ///< the text that the layout manager returned last
};

inline DatabaseState& databaseState() { return sessionPart<DatabaseState>(); }

}  // namespace wb
