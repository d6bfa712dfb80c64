#pragma once

#include "dbsymtb.h"
#include "xgraph.h"

class AcDbAttribute;

/// An insertion of a block, or a grid of such.
class AcDbBlockReference : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockReference)
  ~AcDbBlockReference() override;

  /// The block that is inserted.
  AcDbObjectId blockTableRecord() const;
  /// An iterator over the reference's attributes, deleted by the caller.
  AcDbObjectIterator* attributeIterator() const;
  /// Opens one of the reference's attributes; another object gives `eNotThatKindOfClass`.
  Acad::ErrorStatus openAttribute(AcDbAttribute*& pAttribute, AcDbObjectId objId,
                                  AcDb::OpenMode openMode, bool openErasedOne = false);

 private:
  friend class AcDbObjectImp;
  AcDbBlockReference();
};

/// A line of text.
class AcDbText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbText)
  ~AcDbText() override;

  Acad::ErrorStatus setTextString(const ACHAR* pText);
  Adesk::UInt32 setAttributes(AcGiDrawableTraits*) override;
  Acad::ErrorStatus getClassID(CLSID*) const override;
  Acad::ErrorStatus setField(const ACHAR*, AcDbField*, AcDbObjectId&) override;
  Acad::ErrorStatus removeField(const ACHAR*) override;
  Acad::ErrorStatus removeField(const ACHAR*, AcDbObjectId&) override;
  Acad::ErrorStatus removeField(AcDbObjectId) override;
  bool castShadows() const override;
  bool receiveShadows() const override;
  Adesk::Boolean isPlanar() const override;
  Acad::ErrorStatus getPlane(AcGePlane&, AcDb::Planarity&) const override;
  /// Places text that isn't left-aligned anew, after a change, with the styles of `pDb`, which has
  /// to be the text's own database; null stands for the working database.
  virtual Acad::ErrorStatus adjustAlignment(const AcDbDatabase* pDb = nullptr);

 protected:
  friend class AcDbObjectImp;
  AcDbText();
};

/// A block reference's text under a tag.
class AcDbAttribute : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttribute)
  ~AcDbAttribute() override;

  /// A copy of the tag, freed by the caller with `acutDelString`.
  ACHAR* tag() const;

  Acad::ErrorStatus getClassID(CLSID*) const override;

 private:
  friend class AcDbObjectImp;
  AcDbAttribute();
};
