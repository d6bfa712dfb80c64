#include <acutmem.h>
#include <dbapserv.h>

#include "core/StandInTime.h"
#include "database/Classes.h"
#include "database/Database.h"
#include "database/Drawing.h"
#include "database/Objects.h"
#include "faults/Faults.h"

using wb::AttributeImp;
using wb::ReferenceImp;
using wb::TextImp;

WB_DEFINE_RX_CLASS(AcDbBlockReference, AcDbEntity)
WB_DEFINE_RX_CLASS(AcDbText, AcDbEntity)
WB_DEFINE_RX_CLASS(AcDbAttribute, AcDbText)

AcDbBlockReference::AcDbBlockReference() = default;
AcDbBlockReference::~AcDbBlockReference() = default;
AcDbText::AcDbText() = default;
AcDbText::~AcDbText() = default;
AcDbAttribute::AcDbAttribute() = default;
AcDbAttribute::~AcDbAttribute() = default;

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  const wb::InStandIn inside;
  const auto* imp = static_cast<const ReferenceImp*>(
      AcDbObjectImp::read(this, L"AcDbBlockReference::blockTableRecord"));
  return imp ? imp->record : AcDbObjectId();
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& pAttribute, AcDbObjectId objId,
                                                    AcDb::OpenMode openMode, bool openErasedOne) {
  const wb::InStandIn inside;
  pAttribute = nullptr;
  if (!AcDbObjectImp::read(this, L"AcDbBlockReference::openAttribute")) {
    return Acad::eNotOpenForRead;
  }
  return acdbOpenObject(pAttribute, objId, openMode, openErasedOne);
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* pText) {
  const wb::InStandIn inside;
  if (!pText) return Acad::eInvalidInput;
  auto* imp = static_cast<TextImp*>(AcDbObjectImp::write(this, L"AcDbText::setTextString"));
  if (!imp) return Acad::eNotOpenForWrite;
  if (FAILED(wb::takeFault(L"AcDbText.setTextString"))) return Acad::eInvalidInput;
  imp->setText(pText);
  imp->aligned = imp->leftAligned;
  imp->database.drawing().touch();
  return Acad::eOk;
}

// The place of text that isn't left-aligned follows from its font. No font is measured here: the
// stored alignment point stays the authority, from which a reader of the file places the text.
// What is kept is whether the application asked for it as the host needs it.
Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase* pDb) {
  const wb::InStandIn inside;
  auto* imp = static_cast<TextImp*>(AcDbObjectImp::write(this, L"AcDbText::adjustAlignment"));
  if (!imp) return Acad::eNotOpenForWrite;
  const AcDbDatabase* own = imp->database.database();
  const AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
  if (working == own && (!pDb || pDb == own)) imp->aligned = true;
  return Acad::eOk;
}

ACHAR* AcDbAttribute::tag() const {
  const wb::InStandIn inside;
  const auto* imp =
      static_cast<const AttributeImp*>(AcDbObjectImp::read(this, L"AcDbAttribute::tag"));
  ACHAR* copy = nullptr;
  if (imp) acutNewString(imp->tag.c_str(), copy);
  return copy;
}

namespace wb {

namespace {

// Texts of R13 and later have the group behind the mark of their class.
constexpr std::string_view textClass = "AcDbText";

}  // namespace

std::wstring TextImp::text() const { return database.textOf(entry, 1, textClass); }

void TextImp::setText(std::wstring_view text) { database.setText(entry, 1, textClass, text); }

}  // namespace wb
