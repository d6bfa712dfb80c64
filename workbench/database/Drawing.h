#pragma once

#include <dbid.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;

namespace wb {

class DrawingDatabase;
class Xrefs;

/// The content behind an `AcDbDatabase`: a DXF file in memory.
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

  AcDbDatabase* database() const;
  /// The drawing of a database, null if it is closed.
  static Drawing* of(const AcDbDatabase* database);

  /// What the variable DBMOD gives.
  short dbmod() const { return dbmod_; }
  void setDbmod(short value) { dbmod_ = value; }
  /// The user changes something: the content is another one each time.
  void edit();
  /// Notes a change of the drawing's content.
  void touch() {
    dbmod_ = static_cast<short>(dbmod_ | 1);
    ++revision_;
  }
  /// Another number after each change of what is seen of the drawing.
  unsigned revision() const { return revision_; }

  /// The editor says who may write: a drawing that is open in a document needs a lock of it.
  void setWriteCheck(std::function<bool()> check) { writeCheck_ = std::move(check); }
  /// Whether an object may be opened for write now. Without a check it always may.
  bool mayBeWritten() const { return !writeCheck_ || writeCheck_(); }

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

  /// The references to a block that stand on a tab, or for "#N" the N-th entity (from 1) on a tab
  /// that is no block reference. Empty if there is none.
  std::vector<AcDbObjectId> entities(std::wstring_view name) const;
  /// Erases an entity, as the user does. False if it is no entity or erased already.
  bool erase(AcDbObjectId id);

  /// The drawing is closed, though it may stay in memory: lets go of the xrefs' files, and no
  /// object can be opened any more.
  void close();
  bool closed() const { return closed_; }

  DrawingDatabase& content() const { return *database_; }
  Xrefs& xrefs() const { return *xrefs_; }

 private:
  Drawing();
  static std::unique_ptr<Drawing> read(std::string bytes);

  std::filesystem::path path_;
  std::unique_ptr<DrawingDatabase> database_;
  std::unique_ptr<Xrefs> xrefs_;
  std::wstring currentLayout_;
  std::wstring currentSheet_;
  std::function<bool()> writeCheck_;
  short dbmod_ = 0;
  unsigned revision_ = 0;
  bool closed_ = false;
};

}  // namespace wb
