#pragma once

#include <dbents.h>
#include <dblayout.h>
#include <dbsymtb.h>

#include <memory>
#include <string>
#include <vector>

#include "core/Accounts.h"
#include "dxf/File.h"

namespace wb {
class Drawing;
}  // namespace wb

/// What the host knows of a database object beside the interface that applications see: who it is,
/// where it stands in the file, and its openings. An id stays good until the drawing is gone.
class AcDbObjectImp {
 public:
  AcDbObjectImp(wb::Drawing& drawing, std::unique_ptr<AcDbObject> object);
  virtual ~AcDbObjectImp();
  AcDbObjectImp(const AcDbObjectImp&) = delete;
  AcDbObjectImp& operator=(const AcDbObjectImp&) = delete;

  AcDbObject* object() const { return object_.get(); }
  /// For the transcript: the class, and the object's name.
  std::wstring label() const;

  /// @throws HostError with the host's code for what keeps the object from being opened
  void open(AcDb::OpenMode mode, bool openErased);
  /// @throws HostError if it isn't open
  void close();

  /// The object behind an id, null if its drawing is gone or the id is null.
  static AcDbObjectImp* find(AcDbObjectId id);
  /// The object behind the interface, which must be open for read or write.
  /// @throws HostError for a closed one; it is reported as an `error`
  template <class Imp = AcDbObjectImp>
  static Imp& read(const AcDbObject* object, const wchar_t* operation) {
    return static_cast<Imp&>(requireOpen(object, operation, AcDb::kForRead));
  }
  /// The same for one that must be open for write.
  template <class Imp = AcDbObjectImp>
  static Imp& write(const AcDbObject* object, const wchar_t* operation) {
    return static_cast<Imp&>(requireOpen(object, operation, AcDb::kForWrite));
  }

  /// Makes an object with the interface of its class.
  template <class Imp>
  static std::unique_ptr<Imp> make(wb::Drawing& drawing) {
    using Interface = typename Imp::Interface;
    return std::make_unique<Imp>(drawing, std::unique_ptr<AcDbObject>(new Interface));
  }

  wb::Drawing& drawing;
  AcDbObjectId id;
  const AcDbObjectImp* owner = nullptr;
  wb::DxfEntry entry;  ///< empty if the file doesn't have the object
  std::wstring name;   ///< what names the object among its like, if anything
  bool erased = false;

 private:
  struct Opening {
    AcDb::OpenMode mode;
    wb::Ticket ticket;
  };
  bool isOpen(AcDb::OpenMode mode) const;
  static AcDbObjectImp& requireOpen(const AcDbObject* object, const wchar_t* operation,
                                    AcDb::OpenMode mode);

  std::unique_ptr<AcDbObject> object_;
  std::vector<Opening> openings;  ///< the last one is the first to be closed
};

namespace wb {

struct BlockTableImp : AcDbObjectImp {
  using Interface = AcDbBlockTable;
  using AcDbObjectImp::AcDbObjectImp;
};

struct LayoutImp : AcDbObjectImp {
  using Interface = AcDbLayout;
  using AcDbObjectImp::AcDbObjectImp;

  int tabOrder = 0;
};

struct EntityImp : AcDbObjectImp {
  using Interface = AcDbEntity;
  using AcDbObjectImp::AcDbObjectImp;
};

struct TextImp : EntityImp {
  using Interface = AcDbText;
  using EntityImp::EntityImp;

  std::wstring text() const;
  void setText(std::wstring_view text);

  bool leftAligned = true;
  bool aligned = true;  ///< false after a change until `adjustAlignment`
};

/// Its tag is its name.
struct AttributeImp : TextImp {
  using Interface = AcDbAttribute;
  using TextImp::TextImp;
};

struct BlockRecordImp;

/// Its name is the block's.
struct ReferenceImp : EntityImp {
  using Interface = AcDbBlockReference;
  using EntityImp::EntityImp;

  const BlockRecordImp* record = nullptr;
  std::vector<AttributeImp*> attributes;
};

struct BlockRecordImp : AcDbObjectImp {
  using Interface = AcDbBlockTableRecord;
  using AcDbObjectImp::AcDbObjectImp;

  std::wstring path;  ///< where an xref's file is, as stored
  bool isXref = false;
  bool hasAttributeDefinitions = false;
  const LayoutImp* layout = nullptr;
  std::vector<EntityImp*> entities;
  std::vector<ReferenceImp*> references;
};

}  // namespace wb
