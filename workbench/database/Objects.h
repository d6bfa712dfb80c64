#pragma once

#include <dbents.h>
#include <dblayout.h>
#include <dbsymtb.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/Accounts.h"
#include "dxf/Outline.h"

namespace wb {
class DrawingDatabase;
class Drawing;
}  // namespace wb

/// What the host knows of a database object beside the interface that applications see: who it is,
/// where it stands in the file, and its openings. An id stays good until the database is gone.
class AcDbObjectImp {
 public:
  AcDbObjectImp(wb::DrawingDatabase& database, std::unique_ptr<AcDbObject> object);
  virtual ~AcDbObjectImp();
  AcDbObjectImp(const AcDbObjectImp&) = delete;
  AcDbObjectImp& operator=(const AcDbObjectImp&) = delete;

  AcDbObject* object() const { return object_.get(); }
  /// For the transcript: the class, and what names the object among its like.
  std::wstring label() const;

  /// @throws HostError with the host's code for what keeps the object from being opened
  void open(AcDb::OpenMode mode, bool openErased);
  /// @throws HostError if it isn't open
  void close();
  bool openForRead() const { return !readers_.empty() || writer_.has_value(); }
  bool openForWrite() const { return writer_.has_value(); }

  /// The object behind an id, null if its database is gone or the id is null.
  static AcDbObjectImp* find(AcDbObjectId id);
  /// The object behind the interface, which must be open, as the host insists.
  /// @throws HostError for a closed one; it is reported as an `error`
  template <class Imp = AcDbObjectImp>
  static Imp& read(const AcDbObject* object, const wchar_t* operation) {
    return static_cast<Imp&>(readAny(object, operation));
  }
  template <class Imp = AcDbObjectImp>
  static Imp& write(const AcDbObject* object, const wchar_t* operation) {
    return static_cast<Imp&>(writeAny(object, operation));
  }
  static AcDbObjectImp* of(const AcDbObject* object) { return object->imp; }

  /// Makes an object of a class that only the host may make.
  template <class T>
  static std::unique_ptr<AcDbObject> make() {
    return std::unique_ptr<AcDbObject>(new T);
  }

  wb::DrawingDatabase& database;
  AcDbObjectId id;
  AcDbObjectId owner;
  wb::DxfEntry entry;  ///< empty if the file doesn't have the object
  bool erased = false;

 protected:
  virtual std::wstring name() const { return {}; }

 private:
  static AcDbObjectImp& readAny(const AcDbObject* object, const wchar_t* operation);
  static AcDbObjectImp& writeAny(const AcDbObject* object, const wchar_t* operation);

  std::unique_ptr<AcDbObject> object_;
  std::vector<wb::Ticket> readers_;
  std::optional<wb::Ticket> writer_;
  std::optional<wb::Ticket> watcher_;
};

namespace wb {

class LayoutImp : public AcDbObjectImp {
 public:
  explicit LayoutImp(DrawingDatabase& database) : AcDbObjectImp(database, make<AcDbLayout>()) {}
  std::wstring layoutName;
  int tabOrder = 0;

 protected:
  std::wstring name() const override { return layoutName; }
};

class BlockTableImp : public AcDbObjectImp {
 public:
  explicit BlockTableImp(DrawingDatabase& database)
      : AcDbObjectImp(database, make<AcDbBlockTable>()) {}
};

class BlockRecordImp : public AcDbObjectImp {
 public:
  explicit BlockRecordImp(DrawingDatabase& database)
      : AcDbObjectImp(database, make<AcDbBlockTableRecord>()) {}

  std::wstring blockName;
  std::wstring path;  ///< where an xref's file is, as stored
  bool isXref = false;
  bool hasAttributeDefinitions = false;
  AcDbObjectId layout;
  std::vector<AcDbObjectId> entities;
  std::vector<AcDbObjectId> references;

 protected:
  std::wstring name() const override { return blockName; }
};

class EntityImp : public AcDbObjectImp {
 public:
  using AcDbObjectImp::AcDbObjectImp;
  explicit EntityImp(DrawingDatabase& database) : AcDbObjectImp(database, make<AcDbEntity>()) {}
};

class ReferenceImp : public EntityImp {
 public:
  explicit ReferenceImp(DrawingDatabase& database)
      : EntityImp(database, make<AcDbBlockReference>()) {}
  std::wstring blockName;
  AcDbObjectId record;
  std::vector<AcDbObjectId> attributes;

 protected:
  std::wstring name() const override { return blockName; }
};

class TextImp : public EntityImp {
 public:
  explicit TextImp(DrawingDatabase& database) : EntityImp(database, make<AcDbText>()) {}
  TextImp(DrawingDatabase& database, std::unique_ptr<AcDbObject> object)
      : EntityImp(database, std::move(object)) {}

  std::wstring text() const;
  void setText(std::wstring_view text);

  bool leftAligned = true;
  bool aligned = true;  ///< false after a change until `adjustAlignment`
};

class AttributeImp : public TextImp {
 public:
  explicit AttributeImp(DrawingDatabase& database) : TextImp(database, make<AcDbAttribute>()) {}
  std::wstring tag;

 protected:
  std::wstring name() const override { return tag; }
};

}  // namespace wb
