#include "shared/DrawingTest.h"

#include <acdblmgr.h>
#include <acutmem.h>
#include <dbents.h>
#include <dblayout.h>

namespace {

const char* const titleBlock =
    "0 SECTION\n2 BLOCKS\n0 BLOCK\n2 TITLE\n70 2\n0 ATTDEF\n2 NO\n0 ENDBLK\n"
    "0 BLOCK\n2 EMPTY\n0 ENDBLK\n0 BLOCK\n2 FRAME\n0 INSERT\n2 TITLE\n0 ENDBLK\n0 ENDSEC\n"
    "0 SECTION\n2 ENTITIES\n"
    "0 INSERT\n66 1\n2 title\n70 5\n71 5\n0 ATTRIB\n1 A\\U+00DC\n2 NO\n72 4\n"
    "0 ATTRIB\n1 note\n2 NOTE\n0 SEQEND\n"
    "0 LINE\n8 0\n0 POLYLINE\n66 1\n0 VERTEX\n0 SEQEND\n"
    "0 INSERT\n67 1\n66 1\n2 TITLE\n0 ATTRIB\n40 2.5\n2 NO\n0 SEQEND\n"
    "0 TEXT\n1 words\n0 ENDSEC\n";

class DatabaseTest : public DrawingTest {
 protected:
  /// The first reference to a block on a tab.
  static AcDbObjectId reference(wb::Drawing& drawing, const wchar_t* block,
                                const wchar_t* layout = L"Model") {
    EXPECT_TRUE(drawing.setCurrentLayout(layout));
    const AcDbObjectId id = drawing.entities(block).at(0);
    EXPECT_TRUE(drawing.setCurrentLayout(L"Model"));
    return id;
  }
  // Writes the first attribute with that tag as an application does.
  static void writeAttribute(AcDbObjectId referenceId, const wchar_t* tag, const wchar_t* value) {
    AcDbBlockReference* found = nullptr;
    ASSERT_EQ(Acad::eOk, acdbOpenObject(found, referenceId, AcDb::kForWrite));
    std::unique_ptr<AcDbObjectIterator> iterator(found->attributeIterator());
    for (iterator->start(); !iterator->done(); iterator->step()) {
      AcDbAttribute* attribute = nullptr;
      ASSERT_EQ(Acad::eOk, found->openAttribute(attribute, iterator->objectId(), AcDb::kForWrite));
      ACHAR* own = attribute->tag();
      if (std::wstring(own) == tag) attribute->setTextString(value);
      acutDelString(own);
      attribute->close();
    }
    found->close();
  }
};

TEST_F(DatabaseTest, AChangedAttributeChangesItsGroupAlone) {
  const fs::path plan = projectFolder() / L"workbench/drawings/Site/Plan.dxf";
  const auto drawing = open(plan);
  const AcDbObjectId sheet = reference(*drawing, L"a1_title", L"Layout2");
  writeAttribute(sheet, L"DRAWING_NO", L"\u00C4-7\n^");
  EXPECT_NE(0, drawing->dbmod());

  drawing->save(folder / L"new.dxf");
  std::string expected = bytesOf(plan);
  const size_t tag = expected.find("\nDRAWING_NO\n", expected.find("\nATTRIB\n"));
  const size_t value = expected.rfind("\n  1\n-\n", tag) + 5;
  expected.replace(value, 1, "\xC3\x84-7^J^ ");
  EXPECT_EQ(expected, bytesOf(folder / L"new.dxf"));
  EXPECT_EQ(L"\u00C4-7\n^",
            open(folder / L"new.dxf")->attributes(L"A1_TITLE", L"drawing_no")[0].value);
}

TEST_F(DatabaseTest, ReadsR12WithoutHandlesAndClasses) {
  const auto drawing = openText(dxf(titleBlock));
  EXPECT_EQ((std::vector<std::wstring>{L"Model", L"Layout1"}), drawing->layouts());
  const auto texts = drawing->attributes(L"TITLE", L"no");
  ASSERT_EQ(2u, texts.size());
  EXPECT_EQ(L"A\u00DC", texts[0].value);
  EXPECT_EQ(L"Model", texts[0].layout);
  EXPECT_EQ(L"", texts[1].value);
  EXPECT_EQ(L"Layout1", texts[1].layout);
  // A text group that the file doesn't have is added; the same text again changes nothing.
  writeAttribute(reference(*drawing, L"TITLE", L"Layout1"), L"NO", L"first");
  writeAttribute(reference(*drawing, L"TITLE", L"Layout1"), L"NO", L"second");
  writeAttribute(reference(*drawing, L"TITLE"), L"NO", L"A\u00DC");
  drawing->save(folder / L"new.dxf");
  std::string expected = dxf(titleBlock);
  expected.insert(expected.rfind("0\r\nSEQEND"), "  1\r\nsecond\r\n");
  EXPECT_EQ(expected, bytesOf(folder / L"new.dxf"));
}

TEST_F(DatabaseTest, ReadsOtherProgramsDrawings) {
  const auto r14 = open(projectFolder() / L"tests/drawings/small_r14.dxf");
  EXPECT_EQ((std::vector<std::wstring>{L"Model", L"Layout1"}), r14->layouts());
  const auto grid = open(projectFolder() / L"tests/drawings/multi_insert_with_attribs.dxf");
  ASSERT_EQ(1u, grid->attributes(L"FLAG", L"NAME").size());
  EXPECT_EQ(L"Flag", grid->attributes(L"FLAG", L"NAME")[0].value);
  const auto blocks = open(projectFolder() / L"tests/drawings/custom_blocks.dxf");
  EXPECT_EQ((std::vector<std::wstring>{L"Model", L"Layout1", L"Layout2"}), blocks->layouts());
  EXPECT_FALSE(reference(*blocks, L"CUSTOMBLOCK1").isNull());
}

TEST_F(DatabaseTest, ManyReadersOrOneWriter) {
  const auto drawing = openText(dxf(titleBlock));
  const AcDbObjectId id = reference(*drawing, L"TITLE");
  AcDbObject *first = nullptr, *second = nullptr, *third = nullptr;
  EXPECT_EQ(Acad::eOk, acdbOpenAcDbObject(first, id, AcDb::kForRead));
  EXPECT_EQ(Acad::eOk, acdbOpenAcDbObject(second, id, AcDb::kForRead));
  EXPECT_EQ(Acad::eWasOpenForRead, acdbOpenAcDbObject(third, id, AcDb::kForWrite));
  EXPECT_EQ(nullptr, third);
  EXPECT_EQ(2u, wb::outstanding(firstTicket).size());
  first->close();
  second->close();
  ASSERT_EQ(Acad::eOk, acdbOpenAcDbObject(first, id, AcDb::kForWrite));
  EXPECT_EQ(Acad::eWasOpenForWrite, acdbOpenAcDbObject(second, id, AcDb::kForRead));
  EXPECT_EQ(Acad::eWasOpenForWrite, acdbOpenAcDbObject(second, id, AcDb::kForWrite));
  EXPECT_EQ(L"AcDbBlockReference TITLE for write", wb::outstanding(firstTicket)[0].label);
  first->close();
  AcDbLayout* layout = nullptr;
  EXPECT_EQ(Acad::eNotThatKindOfClass, acdbOpenObject(layout, id, AcDb::kForRead));
  EXPECT_EQ(Acad::eNullObjectId, acdbOpenObject(layout, AcDbObjectId(), AcDb::kForRead));
  EXPECT_TRUE(wb::outstanding(firstTicket).empty());
  EXPECT_EQ(0u, wb::Transcript::instance().problems());

  EXPECT_EQ(Acad::eNotOpenForRead, first->close());
  EXPECT_TRUE(told(L"error: AcDbObject::close of AcDbBlockReference TITLE, which isn't open"));
  EXPECT_TRUE(AcDbBlockReference::cast(first)->blockTableRecord().isNull());
}

TEST_F(DatabaseTest, ReadingNeedsAnOpenObjectAndWritingAnOpenWriter) {
  const auto drawing = openText(dxf(titleBlock));
  AcDbBlockReference* block = nullptr;
  ASSERT_EQ(Acad::eOk, acdbOpenObject(block, reference(*drawing, L"TITLE"), AcDb::kForRead));
  std::unique_ptr<AcDbObjectIterator> iterator(block->attributeIterator());
  AcDbAttribute* attribute = nullptr;
  ASSERT_EQ(Acad::eOk, block->openAttribute(attribute, iterator->objectId(), AcDb::kForRead));
  EXPECT_EQ(Acad::eNotOpenForWrite, attribute->setTextString(L"x"));
  attribute->close();
  EXPECT_EQ(Acad::eNotThatKindOfClass,
            block->openAttribute(attribute, block->objectId(), AcDb::kForRead));
  block->close();
  EXPECT_TRUE(told(L"AcDbText::setTextString of AcDbAttribute NO"));
  EXPECT_EQ(0, drawing->dbmod());
}

TEST_F(DatabaseTest, AlignedTextWaitsForItsOwnWorkingDatabase) {
  const auto drawing = openText(dxf(titleBlock));
  const auto other = wb::Drawing::blank();
  const AcDbObjectId id = reference(*drawing, L"TITLE");
  const auto aligned = [&](const wchar_t* tag) {
    return drawing->attributes(L"TITLE", tag)[0].aligned;
  };
  writeAttribute(id, L"NOTE", L"left");
  EXPECT_TRUE(aligned(L"NOTE"));
  writeAttribute(id, L"NO", L"middle");
  EXPECT_FALSE(aligned(L"NO"));

  AcDbBlockReference* block = nullptr;
  ASSERT_EQ(Acad::eOk, acdbOpenObject(block, id, AcDb::kForWrite));
  std::unique_ptr<AcDbObjectIterator> iterator(block->attributeIterator());
  AcDbAttribute* attribute = nullptr;
  ASSERT_EQ(Acad::eOk, block->openAttribute(attribute, iterator->objectId(), AcDb::kForWrite));
  use(other->database());
  attribute->adjustAlignment(drawing->database());
  EXPECT_FALSE(aligned(L"NO"));
  use(drawing->database());
  attribute->adjustAlignment(other->database());
  EXPECT_FALSE(aligned(L"NO"));
  attribute->adjustAlignment(drawing->database());
  EXPECT_TRUE(aligned(L"NO"));
  attribute->close();
  block->close();
}

TEST_F(DatabaseTest, ErasedObjectsOpenOnRequestAndLeaveTheFile) {
  const auto drawing = openText(dxf(titleBlock));
  const AcDbObjectId id = reference(*drawing, L"TITLE");
  ASSERT_TRUE(drawing->erase(id));
  EXPECT_FALSE(drawing->erase(id));
  AcDbBlockReference* block = nullptr;
  EXPECT_EQ(Acad::eWasErased, acdbOpenObject(block, id, AcDb::kForRead));
  ASSERT_EQ(Acad::eOk, acdbOpenObject(block, id, AcDb::kForRead, true));
  std::unique_ptr<AcDbObjectIterator> iterator(block->attributeIterator());
  EXPECT_TRUE(iterator->done());
  block->close();
  ASSERT_TRUE(drawing->erase(drawing->entities(L"#2")[0]));  // the polyline with its vertex
  drawing->save(folder / L"new.dxf");
  std::string expected = dxf(titleBlock);
  const auto cut = [&](const std::string& from, const std::string& to) {
    const size_t begin = expected.find(from, expected.find("ENTITIES"));
    expected.erase(begin, expected.find(to, begin + from.size()) - begin);
  };
  cut("0\r\nINSERT", "0\r\nLINE");
  cut("0\r\nPOLYLINE", "0\r\nINSERT");
  EXPECT_EQ(expected, bytesOf(folder / L"new.dxf"));
}

TEST_F(DatabaseTest, AnIdOfAClosedDrawingFindsNothing) {
  auto drawing = openText(dxf(titleBlock));
  const AcDbObjectId id = reference(*drawing, L"TITLE");
  AcDbDatabase* const database = drawing->database();
  EXPECT_EQ(drawing.get(), wb::Drawing::of(database));
  drawing->close();
  AcDbObject* late = nullptr;
  EXPECT_EQ(Acad::ePermanentlyErased, acdbOpenAcDbObject(late, id, AcDb::kForRead));
  EXPECT_EQ(nullptr, wb::Drawing::of(database));
  drawing.reset();
  AcDbObject* object = nullptr;
  EXPECT_EQ(Acad::ePermanentlyErased, acdbOpenAcDbObject(object, id, AcDb::kForRead));
}

TEST_F(DatabaseTest, TheCurrentLayoutFollowsFileAndUser) {
  const auto drawing = open(projectFolder() / L"workbench/drawings/Site/Plan.dxf");
  AcDbLayoutManager& manager = *acdbHostApplicationServices()->layoutManager();
  EXPECT_STREQ(L"Model", manager.findActiveLayout(true));
  EXPECT_STREQ(L"Layout1", manager.findActiveLayout(false));
  EXPECT_TRUE(drawing->setCurrentLayout(L"LAYOUT2"));
  EXPECT_FALSE(drawing->setCurrentLayout(L"Layout3"));
  EXPECT_STREQ(L"Layout2", manager.findActiveLayout(true));
  EXPECT_TRUE(drawing->setCurrentLayout(L"Model"));
  EXPECT_STREQ(L"Layout2", manager.findActiveLayout(false));
  use(nullptr);
  EXPECT_EQ(nullptr, manager.findActiveLayout(true));
}

TEST_F(DatabaseTest, AFailedSaveLeavesTheOldFileAndNothingElse) {
  const auto drawing = openText(dxf(titleBlock));
  const fs::path target = folder / L"target.dxf";
  write(target, "old");
  const auto saved = [&](const fs::path& path) { return refusal([&] { drawing->save(path); }); };
  SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(L"the file is write-protected", saved(target));
  SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
  {
    const HeldOpen alone(target, GENERIC_READ, FILE_SHARE_READ);
    EXPECT_NE(L"", saved(target));
  }
  EXPECT_EQ(L"the folder doesn't exist", saved(folder / L"none" / L"a.dxf"));
  EXPECT_EQ("old", bytesOf(target));
  EXPECT_EQ(2, std::distance(fs::directory_iterator(folder), {}));
  EXPECT_EQ(L"", saved(target));
  EXPECT_EQ(target, drawing->path());
}

}  // namespace
