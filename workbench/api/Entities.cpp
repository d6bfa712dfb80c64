#include <acutmem.h>
#include <dbapserv.h>
#include <dbents.h>

#include "database/Database.h"
#include "database/Drawing.h"
#include "database/Objects.h"
#include "gate/HostCall.h"

using wb::HostCall;
using wb::TextImp;

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  return HostCall(L"AcDbBlockReference.blockTableRecord").run(AcDbObjectId(), [&] {
    return AcDbObjectImp::read<wb::ReferenceImp>(this, L"AcDbBlockReference::blockTableRecord")
        .record;
  });
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& pAttribute, AcDbObjectId objId,
                                                    AcDb::OpenMode openMode, bool openErasedOne) {
  pAttribute = nullptr;
  return HostCall(L"AcDbBlockReference.openAttribute").run(Acad::eNotOpenForRead, [&] {
    AcDbObjectImp::read(this, L"AcDbBlockReference::openAttribute");
    return acdbOpenObject(pAttribute, objId, openMode, openErasedOne);
  });
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* pText) {
  return HostCall(L"AcDbText.setTextString", HostCall::swept).run(Acad::eInvalidInput, [&] {
    if (!pText) return Acad::eInvalidInput;
    auto& imp = AcDbObjectImp::write<TextImp>(this, L"AcDbText::setTextString");
    imp.setText(pText);
    imp.aligned = imp.leftAligned;
    imp.database.drawing().touch();
    return Acad::eOk;
  });
}

// The place of text that isn't left-aligned follows from its font. No font is measured here: the
// stored alignment point stays the authority, from which a reader of the file places the text.
// What is kept is whether the application asked for it as the host needs it.
Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase* pDb) {
  return HostCall(L"AcDbText.adjustAlignment").run(Acad::eNotOpenForWrite, [&] {
    auto& imp = AcDbObjectImp::write<TextImp>(this, L"AcDbText::adjustAlignment");
    const AcDbDatabase* own = imp.database.database();
    const AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
    if (working == own && (!pDb || pDb == own)) imp.aligned = true;
    return Acad::eOk;
  });
}

ACHAR* AcDbAttribute::tag() const {
  return HostCall(L"AcDbAttribute.tag").run<ACHAR*>(nullptr, [&] {
    ACHAR* copy = nullptr;
    acutNewString(AcDbObjectImp::read<wb::AttributeImp>(this, L"AcDbAttribute::tag").tag.c_str(),
                  copy);
    return copy;
  });
}
