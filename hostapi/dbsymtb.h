#pragma once

#include "dbmain.h"

class AcDbBlockReference;
class AcDbBlockReferenceIdIterator;
class AcDbBlockReferenceIdIteratorImp;

/// A table of named records.
class AcDbSymbolTable : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTable)
  ~AcDbSymbolTable() override;

 protected:
  AcDbSymbolTable();
};

/// An entry of such a table.
class AcDbSymbolTableRecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord)
  ~AcDbSymbolTableRecord() override;

  /// A copy of the name, freed by the caller with `acutDelString`.
  Acad::ErrorStatus getName(ACHAR*& pName) const;
  /// The object's own text, good for as long as the record is open.
  Acad::ErrorStatus getName(const ACHAR*& pName) const;

 protected:
  AcDbSymbolTableRecord();
};

/// A block definition: a named one, an xref, model space or the sheet of a layout.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord)
  ~AcDbBlockTableRecord() override;

  /// The path that an xref is stored under, as the drawing has it; freed with `acutDelString`.
  Acad::ErrorStatus pathName(ACHAR*& pPath) const;
  /// The object's own text, good for as long as the record is open.
  Acad::ErrorStatus pathName(const ACHAR*& pPath) const;
  bool isFromExternalReference() const;
  bool hasAttributeDefinitions() const;
  /// The layout that shows this block; a null id for an ordinary definition.
  AcDbObjectId getLayoutId() const;
  /// Gives an iterator over the references to this block, deleted by the caller.
  Acad::ErrorStatus newBlockReferenceIdIterator(AcDbBlockReferenceIdIterator*& pIter) const;

 private:
  friend class AcDbObjectImp;
  AcDbBlockTableRecord();
};

/// The table of block definitions.
class AcDbBlockTable : public AcDbSymbolTable {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTable)
  ~AcDbBlockTable() override;

  /// Opens the record of that name, case ignored. `eKeyNotFound`, and null, if there is none.
  Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbBlockTableRecord*& pRec,
                          AcDb::OpenMode openMode, bool openErasedRec = false) const;
  Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbObjectId& recordId,
                          bool getErasedRec = false) const;

 private:
  friend class AcDbObjectImp;
  AcDbBlockTable();
};

/// Walks over the references to one block, erased ones among them.
class AcDbBlockReferenceIdIterator {
 public:
  ~AcDbBlockReferenceIdIterator();

  void start() { mPos = 0; }
  bool done() const { return mPos >= mAry.length(); }
  void step() { ++mPos; }
  /// Opens the reference at this position; null and a status unless it could be opened.
  Acad::ErrorStatus getBlockReference(AcDbBlockReference*& pBlkRef, AcDb::OpenMode openMode,
                                      bool openErasedRec = false) const;

 private:
  friend class AcDbBlockReferenceIdIteratorImp;
  AcDbBlockReferenceIdIterator();
  AcDbBlockReferenceIdIterator(const AcDbBlockReferenceIdIterator&) = delete;
  AcDbBlockReferenceIdIterator& operator=(const AcDbBlockReferenceIdIterator&) = delete;

  int mPos;
  AcDbObjectIdArray mAry;
};
